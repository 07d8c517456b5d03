#pragma once

#include <QGroupBox>
#include <QLabel>
#include <memory>

#include "programs/ProgramActions.h"
#include "widgets/Handlers.h"

namespace Ui {
class ProgramFrame;
}

namespace zlt {

class ProgramDraft;

/// The program box with its files, its compiler and its way to the controller and back.
class ProgramFrame : public QGroupBox, public ProgramView {
    Q_OBJECT

 public:
    explicit ProgramFrame(QWidget* parent = nullptr);
    ~ProgramFrame() override;

    /// Shows the draft's text and has the buttons work on it and on this link. All of these outlive
    /// the frame.
    void connectTo(Handlers& handlers, const Services& services, PanelLink& link,
                   ProgramDraft& draft);
    /// Puts the cursor into the program box.
    void focusProgram();

    [[nodiscard]] std::string program() const override;
    [[nodiscard]] bool programEmpty() const override;
    void setProgram(std::string_view text) override;
    void markSaved() override;
    void SelectEditorLine(int line) override;
    void showCompiledLines(std::string_view caption) override;
    void showListing(std::string_view listing) override;
    void keepUnsaved() override;
    void showRunningTool(std::string_view tool, std::int64_t process) override;
    void clearRunningTool() override;

 private:
    void showWhetherSaved();

    void connectButtons(Handlers& handlers);

    // What connectTo() was given, and the rules over it.
    const Services* m_services = nullptr;
    ProgramDraft* m_draft = nullptr;
    std::unique_ptr<ProgramActions> m_actions;
    std::unique_ptr<Ui::ProgramFrame> m_ui;
    QLabel* m_toolNote;
};

}  // namespace zlt
