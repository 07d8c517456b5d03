#include "ctl/Context.h"
#include "ctl/Setup.h"
#include "panel/MotionCommands.h"
#include "platform/Text.h"
#include "programs/ProgramActions.h"
#include "programs/RunControl.h"

namespace zlt::ctl {
namespace {

/// The program in memory, where the panel has a box for it. Latin-1, CR LF between lines.
class ProgramSheet final : public ProgramView {
 public:
    explicit ProgramSheet(Output& output) : m_output(output) {}

    [[nodiscard]] std::string program() const override { return m_text; }
    [[nodiscard]] bool programEmpty() const override { return m_text.empty(); }
    [[nodiscard]] bool shows(std::string_view text) const override { return m_text == text; }
    void setProgram(std::string_view text) override { m_text = text; }
    void markSaved() override { isInFile = true; }
    void markUnsaved() override { isInFile = false; }
    void showFile() override {}
    void SelectEditorLine(int line) override {
        m_output.error("The compiler stumbled over line " + std::to_string(line) + ".");
    }
    void showCompiledLines(std::string_view caption) override {
        lines = caption.substr(caption.find_last_of(' ') + 1);
    }
    void showErrors(const std::vector<int>&) override {}
    void showRunningLine(std::optional<int>) override {}
    void showListing(std::string_view) override {}
    void keepUnsaved() override {}
    void showRunningTool(std::string_view tool, std::int64_t process) override {
        m_output.progress(std::string(tool) + " runs, process " + std::to_string(process));
    }
    void clearRunningTool() override { m_output.progress({}); }

    bool isInFile = false;  ///< what stands here stands in a file
    std::string lines;      ///< how many the compiled program has

 private:
    Output& m_output;
    std::string m_text;
};

struct ProgramWork {
    explicit ProgramWork(Context& context)
        : sheet(context.output),
          programFile(context.services.files),
          actions(context.services, context.session.link, sheet, programFile) {}

    ProgramSheet sheet;
    ProgramFile programFile;
    ProgramActions actions;
};

void compileFile(Context& context, ProgramWork& work, const std::string& file) {
    context.gate.file = file;
    work.actions.openProgram();
    if (!work.sheet.isInFile)
        throw Failure(ExitCode::refused, "The program " + file + " was not read whole.");
    if (!work.actions.compile())
        throw Failure(ExitCode::refused, "The program " + file + " was not compiled.");
}

/// The downloader looks its port up by the number alone.
void checkPortHasNumber(const Session& session) {
    if (session.link.connection.port == PortDirectory::beyondLast)
        throw Failure(ExitCode::port, "The tools go by port numbers, and none stands for " +
                                          session.target().portName + ".  Give it one in " +
                                          std::string(portListFileName) + ".");
}

/// Runs what the tools do with the controller; its own word for it counts.
void withTools(Context& context, const std::function<bool()>& action) {
    checkPortHasNumber(context.session);
    context.session.identify();
    bool done = false;
    context.session.runUnjudged([&] { done = action(); });
    if (!done)
        throw Failure(ExitCode::refused, "");
}

}  // namespace

void compileProgram(Context& context) {
    ProgramWork work(context);
    compileFile(context, work, context.operands.front());
    context.output.line(context.output.style.json
                            ? JsonObject().addRaw("lines", work.sheet.lines).text()
                            : work.sheet.lines);
}

void downloadProgram(Context& context) {
    ProgramWork work(context);
    if (!context.operands.empty())
        compileFile(context, work, context.operands.front());
    withTools(context, [&] { return work.actions.download(); });
}

void uploadProgram(Context& context) {
    const std::string file = context.operands.empty() ? "" : context.operands.front();
    if (!file.empty())
        checkOverwriting(context, file);
    ProgramWork work(context);
    withTools(context, [&] { return work.actions.upload(); });
    if (file.empty()) {
        for (const std::string& line : splitLines(work.sheet.program()))
            context.output.line(utf8FromLatin1(line));
        return;
    }
    work.sheet.isInFile = false;
    context.gate.file = file;
    work.actions.saveProgram();
    if (!work.sheet.isInFile)
        throw Failure(ExitCode::refused, "The file " + file + " cannot be written.");
}

void clearProgram(Context& context) {
    ProgramWork work(context);
    withTools(context, [&] { return work.actions.clearMemory(); });
}

void runProgram(Context& context) {
    RunControl(context.session.link, [](std::string_view) {}).run();
}

void stopProgram(Context& context) {
    MotionCommands motion(context.session.link, [] {});
    RunControl control(context.session.link, [&](std::string_view command) {
        MotionFields nothing{.speed = {}, .acceleration = {}, .position = {}, .fillsEmpty = false};
        motion.SendMotionCommand(nothing, command);
    });
    context.session.runToTheEnd([&] { control.stop(); });
}

}  // namespace zlt::ctl
