#pragma once

#include <QGroupBox>
#include <memory>

#include "programs/ProgramActions.h"
#include "programs/forms/ProgramEditForm2.h"
#include "programs/forms/ProgramSheet.h"
#include "widgets/Handlers.h"

namespace Ui {
class ProgramFrame;
}

namespace zlt {

class FindBar;

/// The program box with its files, its compiler and its way to the controller and back.
class ProgramFrame : public QGroupBox {
    Q_OBJECT

 public:
    /// Shows the draft's text and has the buttons work on it and on this link; `below` is what the
    /// editor may ask of the panel under it. All of these outlive the frame.
    ProgramFrame(Handlers& handlers, const Services& services, PanelLink& link, ProgramDraft& draft,
                 PanelBelow below, QWidget* parent);
    ~ProgramFrame() override;

    /// Puts the cursor into the program box.
    void focusProgram();

    /// As the functions of ProgramActions: what the poll has read of the program, and that nothing
    /// is known of it.
    void showProgress(std::optional<std::int32_t> counter, std::optional<ProgramState> state);
    void hideProgress();
    void forgetController();

 private:
    void showTitle();
    void connectButtons(Handlers& handlers);
    void connectKeys(Handlers& handlers);
    void OpenText_Click();

    const Services& m_services;
    PanelLink& m_link;
    ProgramDraft& m_draft;
    PanelBelow m_below;
    std::unique_ptr<Ui::ProgramFrame> m_ui;
    FindBar& m_findBar;
    ProgramSheet m_sheet;
    ProgramActions m_actions;
};

}  // namespace zlt
