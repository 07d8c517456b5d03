#include "programs/ThreadWatch.h"

#include <utility>

#include "platform/NumberConversion.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

constexpr auto passInterval = 1ms;
constexpr auto breathingSpace = 1000ms;

}  // namespace

ThreadWatch::ThreadWatch(const Services& services, const LinkHandOver& handOver,
                         std::function<void()> commLost)
    : link(services, flavours::secondThread, this), m_commLost(std::move(commLost)) {
    link.takeOver(handOver);
}

std::optional<ThreadPass> ThreadWatch::readPass() {
    if (ended())
        return std::nullopt;
    const AskedBy refresh(link.busLog(), Asker::poll);
    if (!link.CommOK())
        link.dropInput();  // late answers to what failed
    // No flag guards this screen's exchanges; set here, it tells how the pass went.
    link.setCommOK(true);
    ThreadPass pass;
    // Both counters first, then both states.
    for (std::size_t thread = 0; thread < pass.threads.size(); ++thread)
        pass.threads.at(thread).counter = link.SendReceive("SPC" + std::to_string(thread));
    for (std::size_t thread = 0; thread < pass.threads.size(); ++thread)
        if (const auto code = parseInteger(link.SendReceive("SASTAT" + std::to_string(thread))))
            pass.threads.at(thread).state = programStateOfCode(*code);
    pass.live = link.CommOK();
    return pass;
}

std::chrono::milliseconds ThreadWatch::untilNextPass() const {
    return link.CommOK() ? passInterval : breathingSpace;
}

bool ThreadWatch::stopsAxis(RunCommand command) {
    return command == RunCommand::stop || command == RunCommand::pause;
}

void ThreadWatch::send(int thread, RunCommand command) {
    std::vector<std::string> commands{runCommandText(command, std::to_string(thread))};
    if (stopsAxis(command))
        commands.emplace_back("ABORT");
    link.sendAll(commands);
}

void ThreadWatch::abort() {
    if (link.abort() == Ending::timedOut)
        link.setCommOK(false);
}

void ThreadWatch::commChanged(bool connected) {
    if (!connected)
        m_commLost();
}

}  // namespace zlt
