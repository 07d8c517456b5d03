#include "ctl/Run.h"

#include "ctl/Commands.h"
#include "ctl/Context.h"
#include "ctl/Target.h"
#include "platform/Text.h"

namespace zlt::ctl {
namespace {

/// What the usage has against these arguments, a sentence; empty when nothing.
std::string usageFault(const Arguments& arguments, const Command& command, std::size_t operands) {
    if (!arguments.fault.empty())
        return arguments.fault;
    if (operands < command.leastOperands)
        return std::string(command.name) + " needs more words after it.";
    if (operands > command.mostOperands)
        return std::string(command.name) + " does not take " + inQuotes(arguments.words.back()) +
               ".";
    for (const auto& [option, text] : arguments.options)
        if (!takes(command, option) && option == "id-policy")
            return std::string(command.name) + " takes an address after --id.";
        else if (!takes(command, option))
            return std::string(command.name) + " does not take --" + option + ".";
    if (arguments.has("id-policy") && arguments.has("new-id"))
        return "Either --new-id or --id " + *arguments.option("id-policy") + ", not both.";
    return {};
}

Failure usage(const std::string& sentence) {
    return {ExitCode::usage, sentence + "  See zltctl --help."};
}

void makeReady(Context& context, const Command& command) {
    Session& session = context.session;
    if (session.isForAll() && !command.servesAll)
        throw usage(std::string(command.name) + " is for one device, not for all at 00.");
    if (command.needs == Needs::openPort)
        session.open();
    else if (command.needs == Needs::identifiedDevice)
        session.identify();
    if (const std::string remark = session.link.portRemark(); !remark.empty())
        context.output.note(remark);
}

/// One command from the open port to the closed one.
void carryOut(const World& world, const Arguments& arguments, Heed& heed,
              std::string& interrupted) {
    const auto [command, words] = findCommand(arguments.words);
    if (!command)
        throw usage(arguments.words.empty()
                        ? arguments.fault.empty() ? "What is to be done?" : arguments.fault
                        : "There is no command " + inQuotes(arguments.words.front()) + ".");
    const std::string fault = usageFault(arguments, *command, arguments.words.size() - words);
    if (!fault.empty() && !command->isStop)
        throw usage(fault);

    Services services = world.services;
    services.makePort = [&] {
        return std::make_unique<HeedingPort>(world.services.makePort(), heed);
    };
    const Target target = targetOf(arguments, services.files, world.directory);
    const SettledPort settled(world.directory, target.connection.port);
    Session session(services, world.directory, heed, target);
    Context context{.arguments = arguments,
                    .operands = {arguments.words.begin() + static_cast<std::ptrdiff_t>(words),
                                 arguments.words.end()},
                    .output = world.output,
                    .gate = world.gate,
                    .console = world.console,
                    .heed = heed,
                    .services = services,
                    .session = session,
                    .whenInterrupted = interrupted};
    makeReady(context, *command);
    command->carryOut(context);
    if (!fault.empty())
        throw usage(fault);  // the stop is out
}

int told(const World& world, ExitCode code, const char* sentence) {
    world.gate.tell(world.output, true);
    if (*sentence != '\0')
        world.output.error(sentence);
    // A tool that a signal has ended is no failure of its own.
    const int number = world.console.signalCaught();
    return number != 0 ? 128 + number : static_cast<int>(code);
}

int finish(const World& world) {
    const auto& declined = world.gate.declined();
    world.gate.tell(world.output, !declined.empty());
    for (const std::string& question : declined)
        world.output.error(question + "  Say --yes if so.");
    return static_cast<int>(declined.empty() ? ExitCode::done : ExitCode::refused);
}

int runCommand(const World& world, const Arguments& arguments) {
    ProgramEnd& programEnd = world.services.programEnd;
    Heed heed(world.console, programEnd);
    std::string interrupted = "Interrupted.";
    try {
        carryOut(world, arguments, heed, interrupted);
        return finish(world);
    } catch (const ProgramEnd::Unwind&) {
        // By a signal; or by the rules, which end the panel when its port is lost.
        const bool bySignal = programEnd.exitCode() > 128;
        const int code = told(world, ExitCode::port, bySignal ? interrupted.c_str() : "");
        return bySignal ? programEnd.exitCode() : code;
    } catch (const Failure& failure) {
        return told(world, failure.code(), failure.what());
    } catch (const std::exception& error) {
        return told(world, ExitCode::refused, error.what());
    }
}

}  // namespace

int run(const World& world, const std::vector<std::string>& texts) {
    const Arguments arguments = readArguments(texts);
    Style& style = world.output.style;
    style.json = arguments.has("json");
    style.quiet = arguments.has("quiet");
    style.colours = style.colours && !style.json;
    world.gate.yes = arguments.has("yes");
    try {
        if (arguments.has("help"))
            world.output.write(helpText());
        else if (arguments.has("version"))
            world.output.write(versionText());
        else
            return runCommand(world, arguments);
        return 0;
    } catch (const OutputClosed&) {
        return 0;  // whoever read it has had enough
    } catch (const Failure& failure) {
        return told(world, failure.code(), failure.what());
    }
}

}  // namespace zlt::ctl
