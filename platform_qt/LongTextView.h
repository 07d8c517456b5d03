#pragma once

#include <QPlainTextEdit>

namespace zlt {

/// A text of any length to be read, selected and copied, shown at once: only what is in view is
/// laid out.
class LongTextView : public QPlainTextEdit {
 public:
    LongTextView(const QString& text, QWidget* parent);

 protected:
    QMimeData* createMimeDataFromSelection() const override;
};

}  // namespace zlt
