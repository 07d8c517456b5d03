#pragma once

#include <QLineEdit>

namespace zlt {

/// A field that is wide enough for any number of the controller's, -2147483648 included.
class NumberField : public QLineEdit {
    Q_OBJECT

 public:
    explicit NumberField(QWidget* parent = nullptr) : QLineEdit(parent) {}

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    /// The size that holds `text` in a font of these metrics, frame and all.
    QSize sizeFor(const QString& text, const QFontMetrics& metrics) const;

    /// The longest number there is.
    static QString longestNumber() { return QStringLiteral("-2147483648"); }
};

}  // namespace zlt
