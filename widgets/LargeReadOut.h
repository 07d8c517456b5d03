#pragma once

#include "widgets/ReadOut.h"

namespace zlt {

/// A read-out to be read from beside the machine: its text grows with the place that the layout
/// gives it, as far as the widest text still fits. What it asks for itself does not grow.
class LargeReadOut : public ReadOut {
    Q_OBJECT
    Q_PROPERTY(int digitHeight READ digitHeight WRITE setDigitHeight)
    Q_PROPERTY(QString widestText READ widestText WRITE setWidestText)

 public:
    explicit LargeReadOut(QWidget* parent = nullptr);

    /// How high digits and capitals are at the least, in pixels.
    int digitHeight() const { return m_digitHeight; }
    void setDigitHeight(int pixels);
    /// What must never be cut off; the longest number unless it is set.
    QString widestText() const { return m_widestText; }
    void setWidestText(const QString& text);

    QSize sizeHint() const override;

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    /// The font of a size in pixels.
    QFont fontOf(int pixelSize) const;
    int smallestPixelSize() const;
    void fitText();

    int m_digitHeight = 26;
    QString m_widestText = longestNumber();
};

}  // namespace zlt
