#include "ctl/Output.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "ctl/Failure.h"
#include "platform/NumberConversion.h"
#include "platform/Text.h"

namespace zlt::ctl {
namespace {

std::string inJsonQuotes(std::string_view utf8) {
    std::string text = "\"";
    for (const char c : utf8) {
        std::array<char, 8> escaped{c};
        if (c == '"' || c == '\\')
            escaped = {'\\', c};
        else if (static_cast<unsigned char>(c) < ' ' || c == '\x7F')
            std::snprintf(escaped.data(), escaped.size(), "\\u%04x", static_cast<unsigned>(c));
        text += escaped.data();
    }
    return text + "\"";
}

}  // namespace

void Output::write(std::string_view text) {
    errno = 0;
    m_results << text << std::flush;
    if (m_results)
        return;
    if (errno == EPIPE)
        throw OutputClosed();
    throw Failure(ExitCode::refused,
                  "The results cannot be written: " + std::generic_category().message(errno) + ".");
}

void Output::note(std::string_view text) {
    if (!style.quiet)
        tell(text);
}

void Output::tell(std::string_view text) {
    progress({});
    for (const std::string& line : splitLines(text))
        if (!line.empty())
            m_errors << "zltctl: " << line << '\n';
    m_errors << std::flush;
}

void Output::progress(std::string_view text) {
    if (!style.progress || style.quiet || (text.empty() && !m_progressShown))
        return;
    m_errors << "\r\x1B[K" << text << std::flush;
    m_progressShown = !text.empty();
}

std::string Output::coloured(std::string_view text, Meaning meaning) const {
    if (!style.colours || meaning == Meaning::atRest)
        return std::string(text);
    const char* colour = meaning == Meaning::atFault ? "\x1B[31m" : "\x1B[32m";
    return colour + std::string(text) + "\x1B[0m";
}

std::string printable(std::string_view latin1) {
    std::string text(latin1);
    std::replace_if(text.begin(), text.end(), isControlCharacter, '?');
    return utf8FromLatin1(text);
}

JsonObject& JsonObject::add(std::string_view name, std::string_view text) {
    return addRaw(name, inJsonQuotes(text));
}

JsonObject& JsonObject::addRaw(std::string_view name, std::string_view value) {
    m_members += (m_members.empty() ? "" : ",") + inJsonQuotes(name) + ":" + std::string(value);
    return *this;
}

std::string jsonValue(std::string_view latin1) {
    const auto number = parseInteger(latin1);
    const bool asItStands = number && std::to_string(*number) == latin1;
    return asItStands ? std::string(latin1) : inJsonQuotes(utf8FromLatin1(latin1));
}

}  // namespace zlt::ctl
