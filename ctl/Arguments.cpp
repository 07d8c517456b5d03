#include "ctl/Arguments.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"

namespace zlt::ctl {
namespace {

struct Option {
    std::string_view name;
    bool takesText;
    char letter = '\0';
};

constexpr std::array options{
    Option{"accel", true},  Option{"all", false},        Option{"baud", true},
    Option{"csv", false},   Option{"every", true},       Option{"help", false, 'h'},
    Option{"id", true},     Option{"json", false},       Option{"new-id", true},
    Option{"port", true},   Option{"quiet", false, 'q'}, Option{"speed", true},
    Option{"store", false}, Option{"version", false},    Option{"wait", false},
    Option{"yes", false}};

bool isOption(std::string_view text) {
    const bool number = text.size() > 1 && (text[1] == '.' || (text[1] >= '0' && text[1] <= '9'));
    return text.size() > 1 && text.front() == '-' && !number;
}

const Option* findOption(std::string_view text) {
    const auto found = std::ranges::find_if(options, [text](const Option& option) {
        const bool isLetter = option.letter != '\0' && text == std::string{'-', option.letter};
        return isLetter || (text.starts_with("--") && text.substr(2) == option.name);
    });
    return found == options.end() ? nullptr : &*found;
}

/// Takes the option at `place`, and its text; `place` is at the last of both then.
void takeOption(Arguments& arguments, const std::vector<std::string>& texts, std::size_t& place) {
    const std::string& text = texts[place];
    const auto equals = std::min(text.find('='), text.size());
    const bool joined = equals < text.size();
    const auto complain = [&](const std::string& sentence) {
        if (arguments.fault.empty())
            arguments.fault = sentence;
    };
    const Option* option = findOption(std::string_view(text).substr(0, equals));
    if (!option) {
        complain("There is no option " + inQuotes(text) + ".");
        return;
    }
    const std::string name(option->name);
    std::string value;
    if (!option->takesText && joined)
        complain("The option --" + name + " takes no text.");
    else if (option->takesText && joined)
        value = text.substr(equals + 1);
    else if (option->takesText && place + 1 < texts.size())
        value = texts[++place];
    else if (option->takesText)
        complain("The option --" + name + " needs a text after it.");
    const bool isPolicy = name == "id" && (value == "keep" || value == "from-file");
    arguments.options[isPolicy ? "id-policy" : name] = value;
}

}  // namespace

std::optional<std::string> Arguments::option(std::string_view name) const {
    const auto found = options.find(name);
    return found == options.end() ? std::nullopt : std::optional(found->second);
}

Arguments readArguments(const std::vector<std::string>& texts) {
    Arguments arguments;
    bool optionsOver = false;
    for (std::size_t place = 0; place < texts.size(); ++place)
        if (!optionsOver && texts[place] == "--")
            optionsOver = true;
        else if (!optionsOver && isOption(texts[place]))
            takeOption(arguments, texts, place);
        else
            arguments.words.push_back(texts[place]);
    return arguments;
}

}  // namespace zlt::ctl
