#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "link/Port.h"
#include "link/Services.h"
#include "platform/System.h"

namespace zlt::test {

/// Waits that take no time and are counted.
class CountedWaits : public Waits {
 public:
    void sleep(std::chrono::milliseconds time) override { slept += time; }
    std::chrono::milliseconds slept{0};
};

/// A bus with one controller, as a table of replies. Outlives the ports that are made for it.
class ScriptedBus {
 public:
    /// What the controller answers, without the carriage return; the commands not named here
    /// are answered "OK".
    std::map<std::string, std::string> replies;
    /// When set, decides in place of the table: the reply, or nothing for silence.
    std::function<std::optional<std::string>(const std::string& request)> answer;
    bool silent = false;
    /// The one command that is not answered.
    std::optional<std::string> silentAt;
    bool opens = true;
    bool numberMeansAnother = false;  ///< to whoever looks a port number up by himself
    /// The port fails at the write, or at the first wait, of this command.
    std::optional<std::string> losesAtWriteOf, losesAtReadOf;

    /// Requests as they went out, without the carriage return: "@01PX".
    std::vector<std::string> requests;
    std::vector<std::string> openings;  ///< "3 9600"
    int emptyReads = 0;
    int portsOpen = 0;

    std::unique_ptr<Port> makePort();
    /// What the table says.
    [[nodiscard]] std::string usualReply(const std::string& request) const;
    /// The commands sent since the last call, without "@" and the address.
    std::vector<std::string> takeCommands();
    /// Puts raw bytes where the next read finds them; '\0' stands for one empty read.
    void feed(std::string_view bytes) { m_input.insert(m_input.end(), bytes.begin(), bytes.end()); }

 private:
    friend class ScriptedPort;
    void receive(const std::string& request);

    std::deque<char> m_input;
};

}  // namespace zlt::test
