#include "ctl/Context.h"
#include "platform/Text.h"
#include "terminal/TerminalTalk.h"

namespace zlt::ctl {
namespace {

void exchangeText(Context& context, const std::string& text) {
    Session& session = context.session;
    const std::string command = commandText(text);
    if (session.isForAll()) {
        context.heed.check();
        session.broadcast(command);
        return;
    }
    const std::string reply = session.link.SendReceive(command);
    if (context.output.style.json)
        context.output.line(
            JsonObject().add("command", text).add("reply", utf8FromLatin1(reply)).text());
    else
        context.output.line(printable(reply));
}

/// What was typed at the terminal: an address to go on with, or a command.
void talkOnce(Context& context, std::string& address, const std::string& typed) {
    if (typed.starts_with('@') && typed.size() <= 3) {
        address = deviceAddress(typed.substr(1));
        context.output.note("Device " + address + " from here on.");
        return;
    }
    talkInTranscript(context.session.link, address, commandText(typed),
                     [&](std::string_view piece) {
                         std::string shown;
                         for (const char c : piece)
                             if (c != '\r')
                                 shown += c == '\n' ? "\n" : printable(std::string(1, c));
                         context.output.write(shown);
                     });
    if (address == "00")
        context.session.letOut(typed);
}

}  // namespace

void sendTexts(Context& context) {
    if (context.operands.size() == 1 && context.operands.front() == "-") {
        while (const auto line = context.console.readLine({}))
            if (!line->empty())
                exchangeText(context, *line);
        context.heed.check();
        return;
    }
    for (const std::string& text : context.operands)
        (void)commandText(text);  // a wrong one is told before the first goes out
    for (const std::string& text : context.operands)
        exchangeText(context, text);
}

void talkByHand(Context& context) {
    context.whenInterrupted.clear();
    std::string address = context.session.link.connection.deviceId;
    while (const auto line = context.console.readLine("zltctl> "))
        try {
            if (!line->empty())
                talkOnce(context, address, *line);
        } catch (const Failure&) {
            throw;
        } catch (const std::runtime_error& error) {
            context.output.error(error.what());  // nothing was sent; the next line may be right
        }
    context.heed.check();
}

}  // namespace zlt::ctl
