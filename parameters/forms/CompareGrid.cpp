#include "parameters/forms/CompareGrid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr int fewestRows = 3;  ///< in sight

}  // namespace

CompareGrid::CompareGrid(QWidget* parent) : QTableWidget(0, 5, parent) {
    setHorizontalHeaderLabels({tr("Value"), tr("On the screen"), tr("In the controller"),
                               tr("After power-up"), tr("As file opened")});
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void CompareGrid::showRows(const std::vector<CompareRow>& rows) {
    setRowCount(static_cast<int>(rows.size()));
    int line = 0;
    for (const CompareRow& row : rows) {
        int column = 0;
        for (const std::string& text :
             {row.value, row.onScreen, row.inController, row.afterPowerUp, row.asOpened}) {
            const QString shown = fromUtf8(text);
            auto* cell = new QTableWidgetItem(shown);  // the table's to delete
            cell->setToolTip(QStringLiteral("<qt>%1</qt>").arg(shown.left(1000).toHtmlEscaped()));
            setItem(line, column++, cell);
        }
        ++line;
    }
    updateGeometry();
}

int CompareGrid::heightFor(int rows) const {
    return horizontalHeader()->sizeHint().height() +
           std::max(rows, fewestRows) * verticalHeader()->defaultSectionSize() + 2 * frameWidth();
}

QString CompareGrid::text() const {
    QStringList lines;
    const auto addLine = [&](const auto& textOfColumn) {
        QStringList cells;
        for (int column = 0; column < columnCount(); ++column)
            cells << textOfColumn(column);
        lines << cells.join(QLatin1Char('\t'));
    };
    addLine([&](int column) { return horizontalHeaderItem(column)->text(); });
    const bool all = !selectionModel()->hasSelection();
    for (int row = 0; row < rowCount(); ++row)
        if (all || selectionModel()->isRowSelected(row))
            addLine([&](int column) { return item(row, column)->text(); });
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

QSize CompareGrid::sizeHint() const {
    return {QTableWidget::sizeHint().width(), heightFor(rowCount())};
}

QSize CompareGrid::minimumSizeHint() const {
    return {QTableWidget::minimumSizeHint().width(), heightFor(fewestRows)};
}

void CompareGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        QGuiApplication::clipboard()->setText(text());
    else
        QTableWidget::keyPressEvent(event);
}

}  // namespace zlt
