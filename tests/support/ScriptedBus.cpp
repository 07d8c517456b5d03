#include "support/ScriptedBus.h"

namespace zlt::test {
namespace {

/// What follows "@" and the address.
std::string commandOf(const std::string& request) {
    return request.substr(std::min<std::size_t>(3, request.size()));
}

}  // namespace

class ScriptedPort : public Port {
 public:
    explicit ScriptedPort(ScriptedBus& bus) : m_bus(bus) {}
    ~ScriptedPort() override { ScriptedPort::close(); }

    bool open(PortNumber number, std::string_view baudRate) override {
        m_bus.openings.push_back(std::to_string(number.value) + " " + std::string(baudRate));
        m_open = m_bus.opens;
        m_bus.portsOpen += m_open;
        m_bus.m_input.clear();
        return m_open;
    }
    void close() override {
        m_bus.portsOpen -= m_open;
        m_open = false;
    }
    [[nodiscard]] bool isOpen() const override { return m_open; }

    bool write(std::string_view bytes) override {
        const std::string request(bytes.substr(0, bytes.size() - 1));
        if (commandOf(request) == m_bus.losesAtWriteOf)
            close();
        if (!m_open)
            return false;
        m_bus.receive(request);
        m_losing = commandOf(request) == m_bus.losesAtReadOf;
        return true;
    }
    PortInput read(char& character) override {
        if (!m_open)
            return PortInput::lost;
        if (m_bus.m_input.empty() || m_bus.m_input.front() == '\0') {
            ++m_bus.emptyReads;
            return PortInput::nothing;
        }
        character = m_bus.m_input.front();
        m_bus.m_input.pop_front();
        return PortInput::character;
    }
    PortInput waitForInput(std::chrono::milliseconds) override {
        if (m_losing)
            close();
        if (!m_open)
            return PortInput::lost;
        if (!m_bus.m_input.empty() && m_bus.m_input.front() == '\0')
            m_bus.m_input.pop_front();
        return PortInput::nothing;
    }
    [[nodiscard]] bool numberStillMeant(PortNumber) const override {
        return !m_bus.numberMeansAnother;
    }
    [[nodiscard]] std::string errorText() const override { return "Input/output error"; }

 private:
    ScriptedBus& m_bus;
    bool m_open = false;
    bool m_losing = false;
};

std::unique_ptr<Port> ScriptedBus::makePort() {
    return std::make_unique<ScriptedPort>(*this);
}

void ScriptedBus::receive(const std::string& request) {
    requests.push_back(request);
    std::optional<std::string> reply;
    if (answer)
        reply = answer(request);
    else if (!silent && commandOf(request) != silentAt)
        reply = usualReply(request);
    if (reply)
        feed(*reply + "\r");
}

std::string ScriptedBus::usualReply(const std::string& request) const {
    const auto found = replies.find(commandOf(request));
    return found == replies.end() ? "OK" : found->second;
}

std::vector<std::string> ScriptedBus::takeCommands() {
    std::vector<std::string> commands;
    for (const std::string& request : requests)
        commands.push_back(commandOf(request));
    requests.clear();
    return commands;
}

}  // namespace zlt::test
