#include "simulator/Options.h"

#include <algorithm>
#include <stdexcept>

#include "simulator/Commands.h"

namespace zlt::sim {
namespace {

[[noreturn]] void refuse(const std::string& text) {
    throw std::invalid_argument(text);
}

std::int64_t numberIn(std::string_view key, std::string_view text, std::int64_t lowest,
                      std::int64_t highest) {
    const auto value = wholeNumber(text);
    if (!value || *value < lowest || *value > highest) {
        refuse(std::string(key) + "=" + std::string(text) + ": give a number from " +
               std::to_string(lowest) + " to " + std::to_string(highest));
    }
    return *value;
}

void setLimits(ControllerSetup& setup, std::string_view text) {
    constexpr std::int64_t farthest = 2000000000;
    const auto colon = text.find(':');
    if (colon == std::string_view::npos)
        refuse("limits: give both, such as -20000:20000");
    setup.layout.negativeLimit = numberIn("limits", text.substr(0, colon), -farthest, farthest);
    setup.layout.positiveLimit = numberIn("limits", text.substr(colon + 1), -farthest, farthest);
    if (setup.layout.negativeLimit >= setup.layout.positiveLimit)
        refuse("limits: the first must be the smaller");
}

void setEntry(ControllerSetup& setup, std::string_view key, std::string_view value) {
    constexpr std::int64_t farthest = 2000000000;
    if (key == "id") {
        setup.id = static_cast<int>(numberIn(key, value, 1, 99));
    } else if (key == "firmware") {
        setup.firmware = static_cast<int>(numberIn(key, value, 100, 999));
    } else if (key == "baud") {
        setup.baud = static_cast<long>(numberIn(key, value, 0, 1000000));
        if (codeOfBaud(setup.baud) == 0)
            refuse("baud: give 9600, 19200, 38400, 57600 or 115200");
    } else if (key == "product") {
        setup.product = value;
        if (value.empty() || value.starts_with("ZLD"))
            refuse("product: give a text that does not begin with ZLD");
    } else if (key == "rt") {
        setup.nameInReplies = numberIn(key, value, 0, 1) != 0;
    } else if (key == "limits") {
        setLimits(setup, value);
    } else if (key == "home") {
        setup.layout.home = numberIn(key, value, -farthest, farthest);
    } else if (key == "home-width") {
        setup.layout.homeWidth = numberIn(key, value, 0, farthest);
    } else if (key == "index") {
        setup.layout.indexPitch = numberIn(key, value, 1, farthest);
    } else {
        refuse("a controller has no \"" + std::string(key) + "\"");
    }
}

/// Reads the arguments one by one; what belongs to a port goes to the last one named.
class Reader {
 public:
    explicit Reader(const std::vector<std::string>& arguments) : m_arguments(arguments) {}

    Options read() {
        while (m_next < m_arguments.size())
            option(m_arguments[m_next++]);
        port();
        for (PortOptions& each : m_options.ports)
            if (each.controllers.empty())
                each.controllers.emplace_back();
        return m_options;
    }

 private:
    void option(const std::string& name) {
        if (name == "--help" || name == "-h")
            m_options.help = true;
        else if (name == "--port")
            addPort(value(name));
        else if (name == "--link")
            port().link = value(name);
        else if (name == "--controller")
            port().controllers.push_back(parseController(value(name)));
        else if (name == "--fault")
            port().faults.push_back(value(name));
        else if (name == "--pace" || name == "--unpaced")
            port().paced = name == "--pace";
        else if (name == "--log")
            m_options.logFile = value(name);
        else if (name == "--until-stdin-closes")
            m_options.untilInputCloses = true;
        else
            refuse("there is no option " + name + "; --help lists them");
    }

    std::string value(const std::string& name) {
        if (m_next >= m_arguments.size())
            refuse(name + " needs a value");
        return m_arguments[m_next++];
    }

    void addPort(const std::string& name) {
        const auto same = [&](const auto& each) { return each.name == name; };
        if (name.empty() || name.find_first_of(" \t=") != std::string::npos ||
            std::any_of(m_options.ports.begin(), m_options.ports.end(), same))
            refuse("--port " + name + ": give each port a name of its own, without blanks");
        m_options.ports.push_back({name, {}, {}, {}, true});
    }

    PortOptions& port() {
        if (m_options.ports.empty())
            addPort("COM1");
        return m_options.ports.back();
    }

    const std::vector<std::string>& m_arguments;
    std::size_t m_next = 0;
    Options m_options;
};

}  // namespace

ControllerSetup parseController(std::string_view text) {
    ControllerSetup setup;
    while (!text.empty()) {
        const auto entry = text.substr(0, text.find(','));
        text.remove_prefix(std::min(text.size(), entry.size() + 1));
        const auto equals = entry.find('=');
        if (equals == std::string_view::npos)
            setEntry(setup, "id", entry);
        else
            setEntry(setup, entry.substr(0, equals), entry.substr(equals + 1));
    }
    return setup;
}

Options parseOptions(const std::vector<std::string>& arguments) {
    return Reader(arguments).read();
}

}  // namespace zlt::sim
