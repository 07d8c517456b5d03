#pragma once

#include <QLabel>

namespace zlt {

/// A label for a text from outside: it asks for the text's width up to some thirty characters
/// and shows the front of a longer one, all of it in its tooltip.
class ElidingLabel : public QLabel {
    Q_OBJECT

 public:
    explicit ElidingLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    QString elided() const;
};

}  // namespace zlt
