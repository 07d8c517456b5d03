#include "simulator/Commands.h"

#include <charconv>
#include <cstdio>
#include <limits>

#include "simulator/Controller.h"

namespace zlt::sim {

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    if (text.starts_with('+') && text.find('-') == std::string_view::npos)
        text.remove_prefix(1);
    std::int32_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc{} || stopped != end)
        return {};
    return value;
}

Commands::Answer Commands::execute(Controller& controller, std::string_view command) {
    for (const auto part : {&plain, &parameter, &variable, &deviceName, &programLine, &numbered})
        if (auto answer = part(controller, command))
            return answer;
    return {};
}

Commands::Answer Commands::plain(Controller& controller, std::string_view command) {
    for (const Plain& row : plainRows())
        if (row.text == command)
            return controller.m_firmware >= row.firmware ? row.act(controller) : Answer{};
    return {};
}

Commands::Answer Commands::numbered(Controller& controller, std::string_view command) {
    for (const Numbered& row : numberedRows()) {
        if (!command.starts_with(row.text) || controller.m_firmware < row.firmware)
            continue;
        const auto value = wholeNumber(command.substr(row.text.size()));
        if (value && *value >= row.lowest && *value <= row.highest)
            return row.act(controller, *value);
    }
    return {};
}

Commands::Answer Commands::parameter(Controller& controller, std::string_view command) {
    const auto equals = command.find('=');
    const auto name = command.substr(0, equals);
    for (const ParameterRow& row : parameterRows()) {
        if (row.name != name || controller.m_firmware < row.firmware)
            continue;
        std::int64_t& field = controller.m_working.*row.field;
        if (equals == std::string_view::npos)
            return std::to_string(field);
        const auto value = wholeNumber(command.substr(equals + 1));
        if (!value || *value < row.lowest || *value > row.highest ||
            (row.onlyWhileStill && controller.m_axis.moving()))
            return {};
        field = *value;
        return "OK";
    }
    return {};
}

/// "V0" to "V31" and "V0=" to "V31=", without leading zeros.
Commands::Answer Commands::variable(Controller& controller, std::string_view command) {
    const auto equals = command.find('=');
    const auto name = command.substr(0, equals);
    for (std::size_t i = 0; i < controller.m_variables.size(); ++i) {
        if (name != "V" + std::to_string(i))
            continue;
        if (equals == std::string_view::npos)
            return std::to_string(controller.m_variables[i]);
        const auto value = wholeNumber(command.substr(equals + 1));
        if (!value)
            return {};
        controller.m_variables[i] = *value;
        return "OK";
    }
    return {};
}

Commands::Answer Commands::deviceName(Controller& controller, std::string_view command) {
    if (command == "DN") {
        char name[16];
        std::snprintf(name, sizeof name, "ZLD%02d", controller.m_id);
        return name;
    }
    constexpr std::string_view setting = "DN=ZLD";
    if (!command.starts_with(setting) || command.size() != setting.size() + 2 ||
        command.find_first_not_of("0123456789", setting.size()) != std::string_view::npos ||
        command.ends_with("00"))
        return {};
    controller.m_working.id = *wholeNumber(command.substr(setting.size()));
    return "OK";
}

/// "SAPW<line>=<text>" writes a line of the program memory, "SAPR<line>" reads one.
Commands::Answer Commands::programLine(Controller& controller, std::string_view command) {
    const bool write = command.starts_with("SAPW");
    if (!write && !command.starts_with("SAPR"))
        return {};
    command.remove_prefix(4);
    const auto equals = write ? command.find('=') : command.size();
    const auto line = wholeNumber(command.substr(0, equals));
    if (!line || *line < 0 || equals == std::string_view::npos)
        return {};
    auto& store = controller.m_program.store();
    const auto index = static_cast<std::size_t>(*line);
    if (write) {
        const bool done =
            !controller.m_program.active() && store.write(index, command.substr(equals + 1));
        return done ? Answer{"OK"} : Answer{};
    }
    // The colon keeps an empty line from being an empty answer.
    return index < store.lines().size() ? Answer{":" + store.lines()[index]} : Answer{};
}

}  // namespace zlt::sim
