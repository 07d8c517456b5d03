// The reply reader over a port that does whatever the input says: characters, silence, waits
// that end for nothing, a loss. What is returned must be what the port gave.

#include <algorithm>

#include "Check.h"
#include "link/Exchange.h"

namespace zlt::fuzz {
namespace {

/// Bytes of the input that stand for something else than themselves; in what the port plays, a
/// NUL is an empty read.
constexpr char nothing = '\xFA', manyNothings = '\xFB', burst = '\xFC', longBurst = '\xFD',
               lost = '\xFE';

/// A port that plays the input, then falls silent, and keeps account of what it gave.
class PlayedPort final : public Port {
 public:
    explicit PlayedPort(std::string_view script) {
        for (const char c : script) {
            const bool first = m_play.size() < replyTextKept;
            if (c == manyNothings)
                m_play.append(99, '\0');
            else if (c == burst || c == longBurst)
                m_play.append(c == longBurst && first ? replyTextKept : 1000, 'A');
            else
                m_play += c == nothing ? '\0' : c;
        }
    }
    bool open(PortNumber, std::string_view) override { return true; }
    void close() override {}
    [[nodiscard]] bool isOpen() const override { return true; }
    bool write(std::string_view) override { return true; }
    [[nodiscard]] std::string errorText() const override { return {}; }

    PortInput read(char& character) override {
        ZLT_CHECK(!wasLost);
        character = atEnd() ? '\0' : m_play[m_place++];
        wasLost = character == lost;
        if (wasLost)
            return PortInput::lost;
        emptyReads = character == '\0' ? emptyReads + 1 : 0;
        longestSilence = std::max(longestSilence, emptyReads);
        if (character == '\0')
            return PortInput::nothing;
        given += character;
        return PortInput::character;
    }
    PortInput waitForInput(std::chrono::milliseconds) override {
        return ++m_waits % 3 == 0 ? PortInput::character : PortInput::nothing;  // a wait may lie
    }
    [[nodiscard]] bool atEnd() const { return m_place == m_play.size(); }

    std::string given;
    int emptyReads = 0, longestSilence = 0;
    bool wasLost = false;

 private:
    std::string m_play;
    std::size_t m_place = 0;
    int m_waits = 0;
};

void checkReply(std::string given, const ReadRule& rule, const std::string& reply) {
    ZLT_CHECK(!given.empty());
    if (rule.end == EndOfReply::atEndMark) {
        ZLT_CHECK(given.find(carriageReturn) == given.size() - 1);
        given.pop_back();
        ZLT_CHECK(given.size() <= rule.charactersAllowed);
        ZLT_CHECK(reply == given.substr(0, replyTextKept));
    } else {
        given.resize(std::min(given.size(), replyTextKept) - 1);
        ZLT_CHECK(reply == given);
    }
}

void checkOne(PlayedPort& port, const ReadRule& rule) {
    port.given.clear();
    port.emptyReads = port.longestSilence = 0;
    std::string seen;
    const Reading reading = readReply(port, rule, [&](char c) { seen += c; });
    const int patience = rule.end == EndOfReply::atEndMark ? rule.emptyReadsAllowed + 1 : 1;

    ZLT_CHECK((reading.ending == Ending::portLost) == port.wasLost);
    ZLT_CHECK(port.given.starts_with(seen) && seen.size() <= replyTextKept);
    ZLT_CHECK(port.longestSilence <= patience);
    if (reading.ending == Ending::reply)
        return checkReply(port.given, rule, reading.text);
    ZLT_CHECK(reading.text == seen);
    ZLT_CHECK(reading.ending == Ending::portLost || port.given.size() > rule.charactersAllowed ||
              port.emptyReads == patience);
}

}  // namespace

void check(std::string_view input) {
    const int choice = input.empty() ? 0 : static_cast<unsigned char>(input.front());
    ReadRule rule;
    if ((choice & 1) != 0)
        rule.end = EndOfReply::atSilence;
    if ((choice & 2) != 0)
        rule.charactersAllowed = 4096;  // as the search has it
    rule.emptyReadsAllowed = (choice & 4) != 0 ? 100 : choice >> 3;

    const std::string_view script = input.substr(std::min<std::size_t>(1, input.size()));
    const std::string_view reply = ReplyHeaderStrip(script);
    ZLT_CHECK(script.ends_with(reply));
    ZLT_CHECK(script.size() - reply.size() ==
              (script.starts_with('#') ? std::min<std::size_t>(3, script.size()) : 0));
    PlayedPort port(script);
    while (!port.atEnd() && !port.wasLost)
        checkOne(port, rule);
}

}  // namespace zlt::fuzz
