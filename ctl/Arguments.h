#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zlt::ctl {

/// What stands on the command line, UTF-8.
struct Arguments {
    /// The command and what it works on.
    std::vector<std::string> words;
    /// By the long name without its dashes; a switch has an empty text. The words after --id that
    /// are no address stand under "id-policy".
    std::map<std::string, std::string, std::less<>> options;
    /// The first thing that is wrong, a sentence; empty when nothing is. All else is read as well
    /// as it can be: a stop goes out first.
    std::string fault;

    [[nodiscard]] bool has(std::string_view option) const {
        return options.find(option) != options.end();
    }
    /// An option's text; nothing when it is not given.
    [[nodiscard]] std::optional<std::string> option(std::string_view name) const;
};

/// Options may stand anywhere, as "--name TEXT" or "--name=TEXT"; what comes after "--" is none,
/// and neither is a number below zero or a lone "-".
Arguments readArguments(const std::vector<std::string>& texts);

/// The text of --help, and of --version.
std::string_view helpText();
std::string versionText();

}  // namespace zlt::ctl
