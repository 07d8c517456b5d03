#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "link/PanelLink.h"
#include "programs/ToolRunner.h"

namespace zlt {

/// The program box and what belongs to it, as the rules see them.
class ProgramView : public ToolRunView {
 public:
    /// The program as Latin-1, CR LF between lines. Throws NotLatin1 naming a character that
    /// no file can hold, and its line, with that character selected.
    [[nodiscard]] virtual std::string program() const = 0;
    [[nodiscard]] virtual bool programEmpty() const = 0;
    /// Replaces the program; undo brings the one before back.
    virtual void setProgram(std::string_view text) = 0;
    /// What stands in the box now is what stands in a file.
    virtual void markSaved() = 0;
    /// Selects the given program line, from 1, puts the focus there and scrolls it into view.
    /// Nothing is selected for a line that the program does not have.
    virtual void SelectEditorLine(int line) = 0;
    /// Shows how long the compiled program is; dimmed once the text is another.
    virtual void showCompiledLines(std::string_view caption) = 0;
    /// Shows the compiler's listing until the operator closes it.
    virtual void showListing(std::string_view listing) = 0;
};

/// Asks for a name and saves `text` under it as lines. The common rule of every program save;
/// true when the file stands, which "Save Done!" says but for an empty text. Nothing is said of a
/// file that cannot be created. Throws NotLatin1 from `text` before anything is written.
bool saveAsLines(const Services& services, const FileChoice& choice,
                 const std::function<std::string()>& text);

/// What the program group's buttons do: files, compile, and the way to the controller and back
/// through the external tools, of which the downloader opens the port itself.
class ProgramActions {
 public:
    ProgramActions(const Services& services, PanelLink& link, ProgramView& view)
        : m_services(services), m_link(link), m_view(view), m_tools(services, view) {}

    /// Empties the box, without a question.
    void newProgram();
    /// A file that is not there, is too large or no file is told; one that cannot be read changes
    /// nothing, and of one that breaks off the lines before stand in the box.
    void openProgram();
    /// As saveAsLines().
    void saveProgram();
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
    bool download() { return sendToController("DOWNLOAD"); }
    bool clearMemory() { return sendToController("CLEAR"); }
    /// Replaces the program in the box by the controller's, or by the tool's words. Without
    /// communication it does nothing.
    bool upload();

    /// Set at the start and by each download and clear. Nothing reads it yet.
    int reinitialise = 1;

 private:
    /// The controller's device number and baud rate, as it reports them itself.
    struct Target {
        std::string deviceNumber;
        std::string baudText;
    };
    Target askTarget();
    bool sendToController(const char* operation);
    /// Throws ToolError where the downloader, which looks the port number up by itself, would come
    /// to another device.
    void checkPortNumber() const;
    void writeDownloaderSetup(const Target& target, const char* operation, const char* lines);
    void writeCompilerSetup(const char* operation, std::string_view file);
    bool readProgramBack();

    const Services& m_services;
    PanelLink& m_link;
    ProgramView& m_view;
    ToolRunner m_tools;
};

}  // namespace zlt
