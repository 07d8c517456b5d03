#include "simulator/Misbehaviour.h"

#include <array>
#include <optional>

#include "simulator/Commands.h"
#include "simulator/Text.h"

namespace zlt::sim {
namespace {

struct Switch {
    std::string_view word;
    bool Misbehaviour::*field;
};

constexpr std::array switches{
    Switch{"babble", &Misbehaviour::babble},
    Switch{"garbage", &Misbehaviour::garbage},
    Switch{"empty", &Misbehaviour::empty},
    Switch{"partial", &Misbehaviour::partial},
};

struct Wait {
    std::string_view word;
    Time Misbehaviour::*field;
};

constexpr std::array waits{
    Wait{"delay", &Misbehaviour::delay},
    Wait{"drip", &Misbehaviour::drip},
};

constexpr std::int64_t longestWait = 3600000;  // an hour, in milliseconds
constexpr std::size_t mostAnswers = 256;

std::string randomBytes(std::mt19937& random) {
    std::string bytes(1 + random() % 24, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(static_cast<unsigned char>(random() & 0xFFU));
        if (byte == '\r')
            byte = '\0';
    }
    return random() % 2 == 0 ? bytes : bytes + '\r';
}

}  // namespace

std::string Misbehaviour::apply(std::string_view line, bool& known) {
    const auto [word, rest] = firstWord(line);
    known = true;
    for (const Switch& row : switches) {
        if (row.word == word) {
            this->*row.field = rest != "off";
            return rest.empty() || rest == "on" || rest == "off" ? "" : "say on or off";
        }
    }
    for (const Wait& row : waits) {
        if (row.word == word) {
            const auto milliseconds = wholeNumber(rest);
            if (!milliseconds || *milliseconds < 0 || *milliseconds > longestWait)
                return "give milliseconds, 0 to 3600000";
            this->*row.field = std::chrono::milliseconds(*milliseconds);
            return "";
        }
    }
    if (word == "silent" || word == "speak") {
        silent = word == "silent";
    } else if (word == "normal") {
        *this = {};
    } else if (word == "stray") {
        stray = unescaped(rest);
    } else if (word == "answer") {
        const auto equals =
            rest.find("->") != std::string_view::npos ? rest.find("->") : rest.find('=');
        const std::string command{rest.substr(0, equals)};
        if (command.empty())
            return "give a command, \"=\" (or \"->\") and the answer";
        if (equals == std::string_view::npos)
            answers.erase(command);
        else if (answers.size() < mostAnswers || answers.contains(command))
            answers[command] = unescaped(rest.substr(equals + (rest[equals] == '-' ? 2 : 1)));
        else
            return "too many fixed answers";
    } else {
        known = false;
    }
    return "";
}

std::string spoiled(const Misbehaviour& faults, std::string_view command, const std::string& header,
                    const std::string& answer, std::mt19937& random) {
    if (faults.garbage)
        return randomBytes(random) + faults.stray;
    const auto fixed = faults.answers.find(command);
    std::string text = header + (fixed != faults.answers.end() ? fixed->second : answer);
    if (faults.empty)
        text.clear();
    if (faults.partial)
        return text.substr(0, (text.size() + 1) / 2);
    return text + '\r' + faults.stray;
}

}  // namespace zlt::sim
