#include "support/ScriptedBus.h"

namespace zlt::test {

class ScriptedPort : public Port {
 public:
    explicit ScriptedPort(ScriptedBus& bus) : m_bus(bus) {}
    ~ScriptedPort() override { ScriptedPort::close(); }

    bool open(PortNumber number, std::string_view settings) override {
        m_bus.openings.push_back(std::to_string(number.value) + " " + std::string(settings));
        m_open = m_bus.opens;
        m_bus.portsOpen += m_open;
        m_bus.m_input.clear();
        return m_open;
    }
    void close() override {
        m_bus.portsOpen -= m_open;
        m_open = false;
    }
    bool isOpen() const override { return m_open; }

    bool write(std::string_view bytes) override {
        if (m_open && !bytes.empty() && command(bytes) == m_bus.losesAtWriteOf)
            close();
        if (!m_open)
            return false;
        m_bus.receive(std::string(bytes.substr(0, bytes.size() - 1)));
        m_losing = command(bytes) == m_bus.losesAtReadOf;
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
    std::string errorText() const override { return "Input/output error"; }

 private:
    static std::string_view command(std::string_view request) {
        return request.size() > 3 ? request.substr(3, request.size() - 4) : std::string_view();
    }

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
    if (answer) {
        reply = answer(request);
    } else if (!silent) {
        const auto found = replies.find(request.substr(std::min<std::size_t>(3, request.size())));
        reply = found == replies.end() ? "OK" : found->second;
    }
    if (reply)
        feed(*reply + "\r");
}

std::vector<std::string> ScriptedBus::takeCommands() {
    std::vector<std::string> commands;
    for (const std::string& request : requests)
        commands.push_back(request.substr(std::min<std::size_t>(3, request.size())));
    requests.clear();
    return commands;
}

}  // namespace zlt::test
