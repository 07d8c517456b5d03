#include "bench/BusCost.h"

#include <cstdio>
#include <stdexcept>

#include "bench/Wire.h"
#include "link/BusTalk.h"

namespace zlt::bench {
namespace {

constexpr int exchangesTimed = 50'000;
/// Of what one exchange may take longer.
constexpr double mostMicroseconds = 1.0;

/// Answers at once, in no time.
class InstantPort final : public Port {
 public:
    bool open(PortNumber, std::string_view) override { return true; }
    void close() override {}
    [[nodiscard]] bool isOpen() const override { return true; }
    bool write(std::string_view) override {
        m_place = 0;
        return true;
    }
    PortInput read(char& character) override {
        if (m_place == reply.size())
            return PortInput::lost;
        character = reply[m_place++];
        return PortInput::character;
    }
    PortInput waitForInput(std::chrono::milliseconds) override { return PortInput::lost; }
    [[nodiscard]] std::string errorText() const override { return {}; }

 private:
    std::size_t m_place = reply.size();
};

template <class Exchange>
Microseconds timeOfOne(const Exchange& exchange) {
    const auto begin = Clock::now();
    for (int count = 0; count < exchangesTimed; ++count)
        if (exchange().ending != Ending::reply)
            throw std::runtime_error("an exchange with no port in it failed");
    return Microseconds(Clock::now() - begin) / exchangesTimed;
}

}  // namespace

void measureBusLog(int rounds, Judge& judge) {
    InstantPort port;
    BusLog log;
    BusTalk talk(port, log);
    const AskedBy poll(log, Asker::poll);
    const Connection line{{1}, "115200", std::string(deviceId)};
    std::vector<Microseconds> logged;
    std::vector<Microseconds> plain;
    for (int round = 0; round < rounds; ++round) {
        plain.push_back(timeOfOne([&] {
            port.write(frameRequest(deviceId, command));
            return readReply(port, {});
        }));
        logged.push_back(timeOfOne([&] {
            talk.ask(line, deviceId, command);
            return talk.read({});
        }));
    }
    const double added = (median(logged) - median(plain)).count();
    std::printf("\nThe log of the bus adds to an exchange  %.3f us  %s\n", added,
                judge.atMost(added, mostMicroseconds).c_str());
    std::fflush(stdout);
}

}  // namespace zlt::bench
