#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "link/PanelLink.h"
#include "programs/DownloadedText.h"
#include "programs/ProgramFile.h"
#include "programs/RunControl.h"
#include "programs/ToolRunner.h"

namespace zlt {

/// The program box and what belongs to it, as the rules see them.
class ProgramView : public ToolRunView {
 public:
    /// The program as Latin-1, CR LF between lines. Throws NotLatin1 naming a character that
    /// no file can hold, and its line, with that character selected.
    [[nodiscard]] virtual std::string program() const = 0;
    [[nodiscard]] virtual bool programEmpty() const = 0;
    /// Whether exactly this text (Latin-1, CR LF between lines) stands in the box.
    [[nodiscard]] virtual bool shows(std::string_view text) const = 0;
    /// Replaces the program; undo brings the one before back.
    virtual void setProgram(std::string_view text) = 0;
    /// What stands in the box now is what stands in a file.
    virtual void markSaved() = 0;
    /// What stands in the box is in no file any more.
    virtual void markUnsaved() = 0;
    /// The text belongs to another file now, or to none.
    virtual void showFile() = 0;
    /// Selects the given program line, from 1, puts the focus there and scrolls it into view.
    /// Nothing is selected for a line that the program does not have.
    virtual void SelectEditorLine(int line) = 0;
    /// Shows how long the compiled program is; dimmed once the text is another.
    virtual void showCompiledLines(std::string_view caption) = 0;
    /// Keeps the program lines, from 1, that a failed compile named, to be jumped to; none of an
    /// earlier one.
    virtual void showErrors(const std::vector<int>& lines) = 0;
    /// Marks the program line, from 1, that the controller is at; nothing takes the mark away.
    virtual void showRunningLine(std::optional<int> line) = 0;
    /// Shows the compiler's listing until the operator closes it.
    virtual void showListing(std::string_view listing) = 0;
};

/// A file that was written, and what it holds.
struct SavedFile {
    std::filesystem::path path;
    std::string bytes;
};

/// Asks for a name and saves `text` under it as lines. The common rule of every program save;
/// returns the file when it stands, which "Save Done!" says but for an empty text. Nothing is said
/// of a file that cannot be created. Throws NotLatin1 from `text` before anything is written.
std::optional<SavedFile> saveAsLines(const Services& services, const FileChoice& choice,
                                     const std::function<std::string()>& text);

/// What the program group's buttons do: files, compile, and the way to the controller and back
/// through the external tools, of which the downloader opens the port itself.
class ProgramActions {
 public:
    /// `file` is the one that the text belongs to. All of these outlive this.
    ProgramActions(const Services& services, PanelLink& link, ProgramView& view, ProgramFile& file)
        : m_services(services),
          m_link(link),
          m_view(&view),
          m_file(file),
          m_tools(services, view) {}

    /// The same program is worked on in this view from here on, which is in front now.
    void workOn(ProgramView& view);

    /// Empties the box, without a question.
    void newProgram();
    /// A file that is not there, is too large or no file is told; one that cannot be read changes
    /// nothing, and of one that breaks off the lines before stand in the box.
    void openProgram();
    /// As saveAsLines().
    void saveProgram();
    /// Saves to the text's own file and says nothing of it; asks first where another program has
    /// changed that, and tells a failure. Without a file as saveProgram(). Throws NotLatin1.
    void saveAgain();
    /// Looks whether another program has changed the text's file, and asks once whether to load it;
    /// a text that is in no file any more counts as not saved.
    void checkFile();
    /// Blocks until the compiler has ended; its result is told. Throws ToolError when it did not do
    /// its part, and NotLatin1. True for a good result.
    bool compile();
    /// Shows the last listing; nothing when there is none.
    void viewListing();

    // Each asks the controller first, lends the port to the tool and blocks until that has ended;
    // its result is told. They throw ToolError, the port taken back, when a tool did not do its
    // part, or would not come to this controller. True for a good result.

    /// Stop both threads, then send the last listing, or erase the program memory. Without
    /// communication they say so and do nothing.
    bool download() { return sendToController("DOWNLOAD", Sent::listing); }
    bool clearMemory() { return sendToController("CLEAR", Sent::nothing); }
    /// Replaces the program in the box by the controller's, or by the tool's words. Without
    /// communication it does nothing.
    bool upload();

    /// What a pass of the poll has read of the program: the view marks the line that it is at,
    /// while it runs or is paused and the box holds what was downloaded. A state without a value is
    /// the one before.
    void showProgress(std::optional<std::int32_t> counter, std::optional<ProgramState> state);
    /// Nothing of that is known just now.
    void hideProgress() { m_view->showRunningLine(std::nullopt); }
    /// The controller is another one now.
    void forgetController();
    /// Whether the box holds the text that the controller's program was made of.
    [[nodiscard]] bool showsDownloaded() const;

    /// Set at the start and by each download and clear. Nothing reads it yet.
    int reinitialise = 1;

 private:
    /// The controller's device number and baud rate, as it reports them itself.
    struct Target {
        std::string deviceNumber;
        std::string baudText;
    };
    Target askTarget();
    enum class Sent { listing, nothing };
    bool sendToController(const char* operation, Sent sent);
    /// Throws ToolError where the downloader, which looks the port number up by itself, would come
    /// to another device.
    void checkPortNumber() const;
    void writeDownloaderSetup(const Target& target, const char* operation, const char* lines);
    void writeCompilerSetup(const char* operation, std::string_view file);
    bool readProgramBack();
    void belongsTo(const SavedFile& file);
    void belongsToNoFile();

    const Services& m_services;
    PanelLink& m_link;
    ProgramView* m_view;
    ProgramFile& m_file;
    DownloadedText m_downloaded;
    ProgramState m_state = ProgramState::idle;
    ToolRunner m_tools;
};

}  // namespace zlt
