#pragma once

#include <QLabel>
#include <QWidget>

namespace zlt {

/// A small bar like the lamp of an instrument: filled while lit, an empty frame otherwise. Its
/// shape keeps it from being taken for an option button.
class Lamp : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool lit READ lit WRITE setLit)
    Q_PROPERTY(QColor colour READ colour WRITE setColour)

 public:
    explicit Lamp(QWidget* parent = nullptr);

    [[nodiscard]] bool lit() const { return m_lit; }
    void setLit(bool lit);
    /// The fill while lit. A calm one as long as it is not set: most states are normal ones.
    [[nodiscard]] QColor colour() const { return m_colour; }
    void setColour(const QColor& colour);
    /// Dims the lamp while the controller does not answer.
    void setLive(bool live);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QColor m_colour{30, 136, 229};  ///< told apart from both grounds, light and dark
    bool m_lit = false;
    bool m_live = true;
};

/// A state in words on a colour of its own.
class StatusBox : public QLabel {
    Q_OBJECT

 public:
    explicit StatusBox(QWidget* parent = nullptr);

    /// The colour behind the words; the words take black or white, whichever reads better.
    void setColour(const QColor& background);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace zlt
