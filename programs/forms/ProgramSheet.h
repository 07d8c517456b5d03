#pragma once

#include <QLabel>
#include <functional>

#include "programs/ProgramActions.h"

namespace zlt {

class ProgramDraft;
class ProgramEditor;

/// A program box with what stands around it, as ProgramActions sees it: on the panel, and on the
/// editor over it.
class ProgramSheet : public ProgramView {
 public:
    /// The controls of a screen, all of which outlive this.
    struct Controls {
        ProgramEditor& box;
        QLabel& compiledLines;
        QLabel& toolNote;  ///< over the box's lower edge, while a tool runs
        std::function<void()> showTitle;
        std::function<void(const std::vector<int>& lines)> showErrors;
    };
    /// Shows the draft's text from here on. The screen itself shows its first title.
    ProgramSheet(const Services& services, ProgramDraft& draft, Controls controls);
    /// Shows of the last compile what the other sheet shows.
    void continueFrom(const ProgramSheet& other);

    [[nodiscard]] std::string program() const override;
    [[nodiscard]] bool programEmpty() const override;
    [[nodiscard]] bool shows(std::string_view text) const override;
    void setProgram(std::string_view text) override;
    void markSaved() override;
    void markUnsaved() override;
    void showFile() override { m_controls.showTitle(); }
    void SelectEditorLine(int line) override;
    void showCompiledLines(std::string_view caption) override;
    void showErrors(const std::vector<int>& lines) override { m_controls.showErrors(lines); }
    void showRunningLine(std::optional<int> line) override;
    void showListing(std::string_view listing) override;
    void keepUnsaved() override;
    void showRunningTool(std::string_view tool, std::int64_t process) override;
    void clearRunningTool() override;

    /// "a.prg – not saved": the text's file and whether it holds the text; either may be missing.
    [[nodiscard]] QString fileAndState(const QString& name) const;

 private:
    Controls m_controls;
    const Services& m_services;
    ProgramDraft& m_draft;
};

}  // namespace zlt
