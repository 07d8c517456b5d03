#pragma once

#include <QLabel>

namespace zlt {

/// A state in words on a colour of its own.
class StatusBox : public QLabel {
    Q_OBJECT

 public:
    explicit StatusBox(QWidget* parent = nullptr);

    /// The colour behind the words; the words take black or white, whichever reads better.
    void setColour(const QColor& background);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace zlt
