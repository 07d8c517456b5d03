#pragma once

#include <QKeySequence>
#include <QTextCursor>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>

#include "programs/ProgramActions.h"
#include "programs/forms/ProgramSheet.h"
#include "widgets/Screen.h"

class QMenu;

namespace Ui {
class ProgramEditForm2;
}

namespace zlt {

class FindBar;
class ProgramDraft;

/// What the program editor asks of the panel that it stands over: the port stays the panel's.
struct PanelBelow {
    /// The panel's immediate stop.
    std::function<void()> stop;
    /// One pass of the panel's poll, where it may go on; returns when the next one is due.
    std::function<std::chrono::milliseconds()> poll;
    /// No pass follows: what the panel shows is no live value any more.
    std::function<void()> rest;
};

/// The program text with room around it, over the panel: the panel's own text with its undo steps,
/// the panel's own actions and, by its stop and the mark of the running line, the panel's link.
class ProgramEditForm2 : public Screen {
    Q_OBJECT

 public:
    /// The actions work on this screen from here on; whoever shows it takes them back.
    ProgramEditForm2(const Services& world, ProgramActions& actions, ProgramDraft& draft,
                     PanelBelow below, QWidget* parent);
    ~ProgramEditForm2() override;

    /// Says which device the stop is for.
    void showDevice(std::string_view deviceId);
    ProgramSheet& sheet() { return m_sheet; }
    void placeCursor(int position);
    /// Cursor and selection in the text.
    [[nodiscard]] QTextCursor cursor() const;

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    void connectControls();
    void makeMenus();
    void makeFileMenu(QMenu& menu);
    void makeEditMenu(QMenu& menu);
    void makeViewMenu(QMenu& menu);
    void addTabChoice(QMenu& menu, const QString& text, int blanks);
    /// An entry that runs `work` as a handler.
    void addEntry(QMenu& menu, const QString& text, const QList<QKeySequence>& keys,
                  std::function<void()> work);

    void compile();
    void download();
    void save();
    void zoom(int points);
    void openLineRow();
    void LineNumber_Enter();
    void showErrors(const std::vector<int>& lines);
    void goToNextError();
    void showErrorLine();
    void showTitle();
    void showPlace();
    void noteChange();
    /// Lets the panel's poll go on while the text is the controller's.
    std::chrono::milliseconds follow();

    void Close_Click();
    void closeScreen() override { Close_Click(); }

    ProgramActions& m_actions;
    ProgramDraft& m_draft;
    PanelBelow m_below;
    std::unique_ptr<Ui::ProgramEditForm2> m_ui;
    FindBar& m_findBar;
    ProgramSheet m_sheet;
    std::vector<QTextCursor> m_errors;  ///< lines that the compiler named; they move with the text
    std::size_t m_nextError = 0;
    QTimer m_followTimer{this};
    bool m_following = false;
};

}  // namespace zlt
