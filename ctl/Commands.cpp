#include "ctl/Commands.h"

#include <array>
#include <limits>

#include "ctl/Context.h"

namespace zlt::ctl {
namespace {

constexpr std::size_t many = std::numeric_limits<std::size_t>::max();
constexpr std::string_view motionOptions = " speed accel wait ";

using enum Needs;

constexpr std::array<Command, 19> commands{{
    {"send", 1, many, openPort, sendTexts, {}, true},
    {"terminal", 0, 0, openPort, talkByHand, {}, true},
    {"status", 0, many, identifiedDevice, showStatus},
    {"watch", 0, 0, identifiedDevice, watchStatus, " every csv "},
    {"move", 1, 1, identifiedDevice, moveAxis, motionOptions},
    {"jog", 1, 1, identifiedDevice, jogAxis, motionOptions},
    {"home", 1, 1, identifiedDevice, homeAxis, motionOptions},
    {"stop", 0, 0, openPort, stopAxis, " wait ", true, true},
    {"abort", 0, 0, openPort, abortAxis, {}, true, true},
    {"search", 0, 0, nothing, searchDevices, " all ", true},
    {"parameters read", 0, 1, nothing, readParameters},
    {"parameters write", 1, 1, nothing, writeParameters, " id-policy new-id store "},
    {"parameters diff", 1, 1, nothing, compareParameters, " id-policy "},
    {"program compile", 1, 1, nothing, compileProgram},
    {"program download", 0, 1, nothing, downloadProgram},
    {"program upload", 0, 1, nothing, uploadProgram},
    {"program clear", 0, 0, nothing, clearProgram},
    {"program run", 0, 0, identifiedDevice, runProgram},
    {"program stop", 0, 0, openPort, stopProgram, {}, false, true},
}};

constexpr std::string_view everywhere = " port baud id yes json quiet ";

bool holds(std::string_view list, std::string_view word) {
    return list.find(" " + std::string(word) + " ") != std::string_view::npos;
}

}  // namespace

std::pair<const Command*, std::size_t> findCommand(const std::vector<std::string>& words) {
    const std::string one = words.empty() ? "" : words[0];
    const std::string two = words.size() < 2 ? one : one + " " + words[1];
    for (const Command& command : commands)
        if (command.name == one || command.name == two)
            return {&command, command.name == one ? 1U : 2U};
    return {nullptr, 0};
}

bool takes(const Command& command, std::string_view option) {
    return holds(everywhere, option) || holds(command.options, option);
}

}  // namespace zlt::ctl
