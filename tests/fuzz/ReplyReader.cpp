// The reply reader over a port that does whatever the input says: characters, silence, waits
// that end for nothing, a loss. What is returned must be what the port gave.

#include <algorithm>
#include <string>

#include "link/Exchange.h"
#include "link/Framing.h"
#include "platform/NumberConversion.h"
#include "tests/fuzz/Check.h"

namespace {

using zlt::Ending;
using zlt::PortInput;

/// Bytes that stand for something else than themselves.
enum Event : unsigned char { nothing = 0xFA, manyNothings, burst, overlongBurst, lost };

/// A port that plays the input, then falls silent, and keeps account of what it gave.
class PlayedPort final : public zlt::Port {
 public:
    explicit PlayedPort(std::string_view script) : m_script(script) {}

    bool open(zlt::PortNumber, std::string_view) override { return true; }
    void close() override {}
    bool isOpen() const override { return true; }
    bool write(std::string_view) override { return true; }
    std::string errorText() const override { return {}; }

    PortInput read(char& character) override {
        ZLT_CHECK(!wasLost);
        if (m_pending.empty())
            advance();
        if (wasLost)
            return PortInput::lost;
        if (m_pending.empty() || m_pending.back() == '\0') {
            if (!m_pending.empty())
                m_pending.pop_back();
            ++emptyReads;
            longestSilence = std::max(longestSilence, emptyReads);
            return PortInput::nothing;
        }
        character = m_pending.back();
        m_pending.pop_back();
        given += character;
        emptyReads = 0;
        return PortInput::character;
    }
    PortInput waitForInput(std::chrono::milliseconds) override {
        ++m_waits;
        return m_waits % 3 == 0 ? PortInput::character : PortInput::nothing;  // a wait may lie
    }
    bool atEnd() const { return m_script.empty() && m_pending.empty(); }
    void startReading() {
        given.clear();
        emptyReads = longestSilence = 0;
    }

    std::string given;
    int emptyReads = 0;
    int longestSilence = 0;
    bool wasLost = false;

 private:
    /// Takes the next event. Within `m_pending`, played from its end, a NUL is an empty read.
    void advance() {
        if (m_script.empty())
            return;
        const auto byte = static_cast<unsigned char>(m_script.front());
        m_script.remove_prefix(1);
        switch (byte) {
            case nothing:
                m_pending.assign(1, '\0');
                break;
            case manyNothings:
                m_pending.assign(99, '\0');
                break;
            case burst:
                m_pending.assign(1000, 'A');
                break;
            case overlongBurst:
                m_pending.assign(m_bursts++ < 2 ? zlt::replyTextKept : 1, 'B');
                break;
            case lost:
                wasLost = true;
                break;
            default:
                m_pending.assign(1, byte == 0 ? '\x01' : static_cast<char>(byte));
        }
    }

    std::string_view m_script;
    std::string m_pending;
    int m_bursts = 0;
    int m_waits = 0;
};

void checkStripped(std::string_view line) {
    const std::string_view reply = zlt::ReplyHeaderStrip(line);
    ZLT_CHECK(line.ends_with(reply));
    const std::size_t header = line.size() - reply.size();
    ZLT_CHECK(header <= 3 && (header == 0) == (line.empty() || line.front() != '#'));
    try {
        zlt::replyToInteger("PX", reply);
    } catch (const zlt::ConversionError& error) {
        ZLT_CHECK(zlt::fuzz::isUtf8(error.what()));
    }
}

void checkReply(const PlayedPort& port, const zlt::ReadRule& rule, const zlt::Reading& reading) {
    std::string given = port.given;
    ZLT_CHECK(!given.empty());
    if (rule.end == zlt::EndOfReply::atEndMark) {
        ZLT_CHECK(given.find(zlt::carriageReturn) == given.size() - 1);
        given.pop_back();
        ZLT_CHECK(given.size() <= rule.charactersAllowed);
        ZLT_CHECK(reading.text == given.substr(0, zlt::replyTextKept));
    } else {
        given.resize(std::min(given.size(), zlt::replyTextKept) - 1);
        ZLT_CHECK(reading.text == given);
    }
    checkStripped(reading.text);
}

void checkOne(PlayedPort& port, const zlt::ReadRule& rule) {
    port.startReading();
    std::string seen;
    const zlt::Reading reading = zlt::readReply(port, rule, [&](char c) { seen += c; });
    const bool byLine = rule.end == zlt::EndOfReply::atEndMark;

    ZLT_CHECK((reading.ending == Ending::portLost) == port.wasLost);
    ZLT_CHECK(port.given.starts_with(seen) && seen.size() <= zlt::replyTextKept);
    ZLT_CHECK(port.longestSilence <= (byLine ? rule.emptyReadsAllowed + 1 : 1));
    if (reading.ending == Ending::reply)
        return checkReply(port, rule, reading);
    ZLT_CHECK(reading.text.empty());
    if (reading.ending == Ending::timedOut) {
        const bool tooLong = port.given.size() > rule.charactersAllowed;
        const bool tooSilent = byLine ? port.emptyReads == rule.emptyReadsAllowed + 1
                                      : port.emptyReads == 1 && port.given.empty();
        ZLT_CHECK(tooLong || tooSilent);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    zlt::ReadRule rule;
    if (data[0] & 1)
        rule.end = zlt::EndOfReply::atSilence;
    if (data[0] & 2)
        rule.charactersAllowed = 4096;  // as the search has it
    rule.emptyReadsAllowed = data[0] & 4 ? 100 : data[0] >> 3;

    const std::string_view script = zlt::fuzz::textOf(data + 1, size - 1);
    checkStripped(script);
    PlayedPort port(script);
    while (!port.atEnd() && !port.wasLost)
        checkOne(port, rule);
    return 0;
}
