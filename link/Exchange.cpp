#include "link/Exchange.h"

#include "link/Framing.h"

namespace zlt {
namespace {

Reading endedBySilence(std::string text) {
    if (text.empty())
        return {Ending::timedOut, {}};
    text.pop_back();
    return {Ending::reply, std::move(text)};
}

}  // namespace

Reading readReply(Port& port, const ReadRule& rule, const std::function<void(char)>& onCharacter) {
    const bool byLine = rule.end == EndOfReply::atEndMark;
    std::string text;
    std::size_t characters = 0;
    int emptyReads = rule.emptyReadsBefore;
    int emptyReadsInAll = 0;
    for (;;) {
        char character = 0;
        switch (port.read(character)) {
            case PortInput::lost:
                return {Ending::portLost, {}};
            case PortInput::character:
                if (byLine && character == carriageReturn)
                    return {Ending::reply, std::move(text), emptyReads, emptyReadsInAll};
                emptyReads = 0;
                if (++characters > rule.charactersAllowed)
                    return {Ending::timedOut, {}};
                if (text.size() < replyTextKept) {
                    text += character;
                    if (onCharacter)
                        onCharacter(character);
                }
                break;
            case PortInput::nothing:
                if (!byLine)
                    return endedBySilence(std::move(text));
                if (port.waitForInput(rule.emptyReadWait) == PortInput::lost)
                    return {Ending::portLost, {}};
                if (++emptyReads > rule.emptyReadsAllowed ||
                    ++emptyReadsInAll > rule.emptyReadsInAllAllowed)
                    return {Ending::timedOut, {}};
                break;
        }
    }
}

}  // namespace zlt
