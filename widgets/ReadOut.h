#pragma once

#include <string_view>

#include "platform/ShownState.h"
#include "widgets/Fields.h"

namespace zlt {

/// A value that the controller reports: to be read, selected and copied, not typed into, and so on
/// the ground of its screen and not on that of an entry field.
class ReadOut : public NumberField {
    Q_OBJECT

 public:
    explicit ReadOut(QWidget* parent = nullptr);

    /// Shows a reply as it stands (Latin-1). Writes only when it differs, so that a selection
    /// stays and an unchanged value costs nothing.
    void showReply(std::string_view reply);

    /// Shows what the axis or a program is doing, in colour as well where it is not at rest.
    void showState(const ShownState& state);

    /// Dims the value while the controller does not answer: it is no live one then.
    void setLive(bool live);

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void colour();

    bool m_live = true;
    bool m_colouring = false;
    Meaning m_meaning = Meaning::atRest;
};

/// How much is left of what is painted and is no live value.
inline constexpr double dimmedOpacity = 0.4;

/// A read-out to be read from beside the machine: its text grows with the place that the layout
/// gives it, as far as the widest text still fits. What it asks for itself does not grow.
class LargeReadOut : public ReadOut {
    Q_OBJECT
    Q_PROPERTY(int digitHeight READ digitHeight WRITE setDigitHeight)
    Q_PROPERTY(QString widestText READ widestText WRITE setWidestText)

 public:
    explicit LargeReadOut(QWidget* parent = nullptr);

    /// How high digits and capitals are at the least, in pixels.
    [[nodiscard]] int digitHeight() const { return m_digitHeight; }
    void setDigitHeight(int pixels);
    /// What must never be cut off; the longest number unless it is set.
    [[nodiscard]] QString widestText() const { return m_widestText; }
    void setWidestText(const QString& text);

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    /// The font of a size in pixels.
    [[nodiscard]] QFont fontOf(int pixelSize) const;
    [[nodiscard]] int smallestPixelSize() const;
    void fitText();

    int m_digitHeight = 26;
    QString m_widestText = longestNumber();
};

}  // namespace zlt
