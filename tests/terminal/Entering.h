#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <span>

#include "support/FormDriver.h"
#include "support/ScriptedBus.h"

namespace zlt::test {

/// Types a command into an entry line and presses Enter.
inline void enter(QWidget& form, const char* line, const char* command) {
    control<QLineEdit>(form, line).setText(QString::fromUtf8(command));
    press(form, line, Qt::Key_Return);
}

/// What an entry line holds once a key was pressed in it.
inline std::string shownAfter(QWidget& form, const char* line, Qt::Key key) {
    press(form, line, key);
    return textOf(form, line);
}

/// A command by hand: what the controller says to it (nothing: silence), what is shown then, the
/// request that went out for it, and how often a character was waited for in vain.
struct Talk {
    const char *address, *command;
    std::optional<std::string> reply;
    std::string shown, request;
    int emptyReads = 0;
};

/// Has each talk held by `enters`, which takes address and command and returns what is shown.
template <class Enters>
void expectTalks(ScriptedBus& bus, std::initializer_list<Talk> talks, Enters enters) {
    for (const Talk& talk : talks) {
        bus.answer = [&](const std::string&) { return talk.reply; };
        bus.emptyReads = 0;
        bus.requests.clear();
        EXPECT_EQ(enters(talk.address, talk.command), talk.shown);
        EXPECT_EQ(bus.requests, std::vector<std::string>{talk.request});
        EXPECT_EQ(bus.emptyReads, talk.emptyReads) << talk.request;
    }
    bus.answer = {};
    bus.requests.clear();
}

}  // namespace zlt::test
