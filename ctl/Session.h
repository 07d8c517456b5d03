#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ctl/Failure.h"
#include "ctl/HeedingPort.h"
#include "link/PanelLink.h"
#include "link/serial/PortDirectory.h"

namespace zlt::ctl {

/// Whom a command is for, and by what name the operator knows the port.
struct Target {
    Connection connection;
    std::string portName;  ///< UTF-8: "COM3", "/dev/ttyUSB0"
};

/// One command's link to the controller. What fails throws Failure at once, so that nothing is sent
/// after it: a reply that does not come, a port that goes, a refusal.
class Session : private PanelLinkListener {
 public:
    Session(const Services& services, PortDirectory& directory, Heed& heed, Target target);

    /// Opens the port.
    void open();
    /// The same, and has the controller tell its name and firmware, as the panel's load does.
    void identify();

    /// Runs `action` to its end, signals or not, and throws what failed first only then: a stop.
    void runToTheEnd(const std::function<void()>& action);
    /// The same for rules that judge replies and failures by themselves; refusals are not looked
    /// at. A signal ends it between two exchanges.
    void runUnjudged(const std::function<void()>& action);

    /// Sends to all controllers on the bus. None answers: it returns once the bytes are on the
    /// line.
    void broadcast(const std::string& command);
    /// Waits until a request that nobody answers is on the line: closing a port sets its line back,
    /// whatever is still on the way out.
    void letOut(std::string_view command);
    [[nodiscard]] bool isForAll() const { return link.connection.deviceId == "00"; }

    /// For a link that stands in for this one.
    LinkListener& listener() { return *this; }
    /// What the last exchange was answered, Latin-1.
    [[nodiscard]] const std::string& lastReply() const { return m_lastReply; }
    /// "device 01 on COM3 at 9600 baud".
    [[nodiscard]] std::string name() const;
    [[nodiscard]] const Target& target() const { return m_target; }

    PanelLink link;

 private:
    void commChanged(bool) override {}
    void exchangeTimedOut() override;
    void portLost() override;
    void pollHeldOff() override {}
    void portNotTakenBack() override;
    void replied(std::string_view command, std::string_view reply) override;

    void fail(const Failure& failure);
    void throwNoted();
    std::string portProblem();

    const Services& m_services;
    PortDirectory& m_directory;
    Heed& m_heed;
    Target m_target;
    std::string m_lastReply;
    bool m_throws = true;
    bool m_judges = true;
    std::optional<Failure> m_noted;
};

/// Whether this reply (both Latin-1) says that the command was not carried out: a setting is
/// acknowledged by "OK" alone, and what cannot be done is answered by "?" and the command.
bool isRefusal(std::string_view command, std::string_view reply);

}  // namespace zlt::ctl
