#include "bench/SoakPhases.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <iostream>

#include "app/SearchCom.h"
#include "bench/Resources.h"
#include "panel/forms/MainControlForm.h"
#include "parameters/forms/SetupParameters.h"
#include "programs/forms/ProgramDraft.h"
#include "programs/forms/ViewCompiledForm.h"
#include "programs/forms/XThreadForm.h"
#include "terminal/forms/TerminalForm.h"
#include "terminal/forms/VariableForm.h"

namespace zlt::bench {
namespace {

constexpr long growthAllowedKiB = 1024;
/// So many wrong ones end a phase.
constexpr int hopeless = 50;

/// Runs `once` for warming up, then so many times between two looks at what is held.
/// `mayGrowKiB` of memory at the most.
bool soak(const std::string& what, int count, long mayGrowKiB, MessageList& gate,
          const std::function<bool(int turn)>& once) {
    const int warmUps = std::max(5, count / 10);
    int wrong = 0;
    for (int turn = 0; turn < warmUps && wrong < hopeless; ++turn)
        wrong += once(turn) ? 0 : 1;
    const Resources before = Resources::now();
    for (int turn = 0; turn < count && wrong < hopeless; ++turn)
        wrong += once(turn) ? 0 : 1;
    const Resources after = Resources::now();

    std::cout << reportLine(what, before, after) << "   wrong " << wrong << std::endl;
    for (const std::string& message : gate.shown)
        std::cout << "    unexpected message: " << message << std::endl;
    const bool good = wrong == 0 && gate.shown.empty() && before.openFiles == after.openFiles &&
                      after.memoryKiB - before.memoryKiB <= mayGrowKiB;
    gate.shown.clear();
    return good;
}

/// The openings are told, not judged, by their memory: fonts and styles are cached by then,
/// but the heap's shape is not ours.
constexpr long notJudged = 1'000'000'000;

template <class Form, class... Args>
bool openOnce(Args&&... args) {
    Form form(std::forward<Args>(args)..., nullptr);
    if constexpr (std::is_same_v<Form, MainControlForm>)
        form.Form_Load({{1}, "9600", "01"});
    else if constexpr (!std::is_same_v<Form, ViewCompiledForm>)
        form.Form_Load();
    bool shown = false;
    // A close within a running tick is passed over, as for an operator; so it comes again.
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &form, [&] {
        shown = shown || form.isVisible();
        form.close();
    });
    closer.start(1);
    form.showModal();
    return shown;
}

/// Opens what this button of the panel opens, and closes that and the panel.
bool openFromPanel(const Services& services, ProgramDraft& draft, const QString& name) {
    MainControlForm panel(services, draft, nullptr);
    panel.Form_Load({{1}, "9600", "01"});
    bool shown = false;
    QTimer worker, clicker;
    QObject::connect(&worker, &QTimer::timeout, &panel, [&] {
        QWidget* opened = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window != &panel)
                opened = window;
        shown = shown || opened;
        if (opened)
            opened->close();
        else if (shown)
            panel.close();
        else
            clicker.start(0);
    });
    // By a timer of its own: one does not tick while what it has started stands over it.
    clicker.setSingleShot(true);
    QObject::connect(&clicker, &QTimer::timeout, &panel,
                     [&] { panel.findChild<QAbstractButton*>(name)->click(); });
    worker.start(1);
    panel.showModal();
    return shown;
}

Ending ask(Port& port) {
    if (!port.write("@01DN\r"))
        return Ending::portLost;
    const Reading reading = readReply(port, {});
    return reading.ending == Ending::reply && reading.text != "ZLD01" ? Ending::timedOut
                                                                      : reading.ending;
}

}  // namespace

bool soakExchanges(SoakBed& bed, int count) {
    ScreenLink link(bed.services, flavours::controlPanel, nullptr);
    link.connection = bed.handOver.connection;
    if (!link.openPort())
        return false;
    link.setCommOK(true);
    // The log of the bus is full then, and grows no more.
    for (std::size_t exchange = 0; exchange < BusLog::recordsKept; ++exchange)
        link.SendReceive("PX");
    const std::pair<const char*, const char*> table[] = {
        {"DN", "ZLD01"}, {"VER", "V322"}, {"PX", "0"}, {"V5", "0"}};
    return soak("exchanges " + std::to_string(count), count, growthAllowedKiB, bed.gate,
                [&](int turn) {
                    const auto& [asked, answer] = table[turn % 4];
                    return link.SendReceive(asked) == answer;
                });
}

bool soakCycles(SoakBed& bed, int count) {
    return soak("open and close cycles " + std::to_string(count), count, growthAllowedKiB, bed.gate,
                [&](int) {
                    const auto port = bed.makePort();
                    bool good = port->open({1}, "9600") && ask(*port) == Ending::reply;
                    port->close();
                    good = port->open({1}, "9600") && ask(*port) == Ending::reply && good;
                    bed.simulator.say("hangup");
                    good = ask(*port) == Ending::portLost && !port->isOpen() && good;
                    bed.simulator.say("plug");
                    bed.listPort();
                    return port->open({1}, "9600") && ask(*port) == Ending::reply && good;
                });
}

bool soakScreens(SoakBed& bed, int count) {
    const Services& services = bed.services;
    ProgramDraft draft(services);
    const std::string listing(2000, 'x');
    CommandHistory history;
    const std::pair<const char*, std::function<bool()>> screens[] = {
        {"MainControlForm", [&] { return openOnce<MainControlForm>(services, draft); }},
        {"SetupParameters", [&] { return openOnce<SetupParameters>(services, bed.handOver); }},
        {"TerminalForm", [&] { return openOnce<TerminalForm>(services, bed.handOver, history); }},
        {"VariableForm", [&] { return openOnce<VariableForm>(services, bed.handOver); }},
        {"XThreadForm", [&] { return openOnce<XThreadForm>(services, bed.handOver); }},
        {"ViewCompiledForm", [&] { return openOnce<ViewCompiledForm>(services, listing); }},
        {"SearchCom", [&] { return openOnce<SearchCom>(services, SearchMode::all); }},
    };
    bool good = true;
    for (const char* button : {"OpenText", "Trend", "Bus"})
        good = soak("panel with " + std::string(button) + " " + std::to_string(count), count,
                    notJudged, bed.gate,
                    [&](int) {
                        return openFromPanel(services, draft, QString::fromLatin1(button));
                    }) &&
               good;
    for (const auto& [name, open] : screens)
        good = soak(std::string(name) + " " + std::to_string(count), count, notJudged, bed.gate,
                    [&open = open](int) { return open(); }) &&
               good;
    return good;
}

}  // namespace zlt::bench
