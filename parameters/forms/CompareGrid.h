#pragma once

#include <QTableWidget>
#include <vector>

#include "parameters/Comparison.h"

namespace zlt {

/// Screen, controller and file side by side, to be read, selected and copied.
class CompareGrid : public QTableWidget {
    Q_OBJECT

 public:
    explicit CompareGrid(QWidget* parent = nullptr);

    void showRows(const std::vector<CompareRow>& rows);
    /// The selected rows, or all of them where none is, as lines of tab-separated text below one of
    /// the headings.
    [[nodiscard]] QString text() const;

    /// Shows all rows; less room will do.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    [[nodiscard]] int heightFor(int rows) const;
};

}  // namespace zlt
