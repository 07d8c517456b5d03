#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "programs/TextSearch.h"
#include "widgets/Handlers.h"

namespace Ui {
class FindBar;
}

namespace zlt {

class ProgramEditor;

/// Finds and replaces in a program box. Hidden until it is opened; Escape closes it.
class FindBar : public QWidget {
    Q_OBJECT

 public:
    /// Looks in this box, which outlives the bar; its controls come after the box in the tab order.
    FindBar(Handlers& handlers, ProgramEditor& box, QWidget* parent);
    ~FindBar() override;

    /// The short form for a small box: no replacing, no choices.
    void makeShort();

    /// Opens the bar with what is selected in the box, if that is within a line.
    void open(bool toReplace);
    /// Selects the next one, or the one before; opens the bar where there is nothing to look for.
    void findNext() { find(true); }
    void findPrevious() { find(false); }
    /// Closes the bar and gives the box the focus.
    void shut();

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void find(bool forwards);
    void replace();
    void replaceAll();
    void select(const std::vector<std::size_t>& places, std::size_t index, bool wrapped);
    [[nodiscard]] SearchRule rule() const;
    [[nodiscard]] QString replacement() const;

    std::unique_ptr<Ui::FindBar> m_ui;
    ProgramEditor& m_box;
};

}  // namespace zlt
