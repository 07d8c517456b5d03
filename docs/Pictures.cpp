// Takes the pictures of all screens for README and guide: the real screens, driven as the operator
// would, against the simulator. What moves is held at fixed values, so that the same build takes
// the same pictures.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QImageWriter>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>

#include "app/SearchCom.h"
#include "app/SelectComForm.h"
#include "panel/forms/MainControlForm.h"
#include "panel/forms/TrendForm.h"
#include "platform_qt/PosixSystem.h"
#include "programs/forms/CodeEditor.h"
#include "support/FormDriver.h"
#include "support/RealWorld.h"
#include "support/SimulatedBus.h"
#include "terminal/forms/BusForm.h"
#include "terminal/forms/EntryFields.h"

namespace zlt::pictures {
namespace {

using namespace zlt::test;

constexpr auto program =
    "; Three strokes, then home\r\nHSPD=5000\r\nACC=300\r\nEO=1\r\nV1=3\r\nWHILE V1>0\r\n"
    "  X4000\r\n  WAITX\r\n  X0\r\n  WAITX\r\n  V1=V1-1\r\nENDWHILE\r\nH-\r\nEND\r\n"
    "PRG 1\r\nV2=DI\r\nEND\r\n";

/// One walk through the program, with a picture of each screen on the way.
class Walk : public RealWorld {
 public:
    explicit Walk(std::filesystem::path pictures) : m_pictures(std::move(pictures)) {
        std::filesystem::create_directories("EXE");
        for (const char* tool : {"SA_Compile_Decompile", "SA_Download_Upload"})
            std::filesystem::copy(std::filesystem::path(ZLT_TOOLS_FOLDER) / tool, "EXE");
        // A link beside the list keeps the machine's own number of the port out of the pictures.
        std::filesystem::create_symlink(m_bus.device(), "com1");
        tools.run = [this](const std::string& tool) {
            return m_processes.runAndWait(std::filesystem::absolute("EXE") / tool,
                                          [](std::int64_t) {});
        };
        std::ofstream("zlt-r-485.ports") << "COM1=./com1\nCOM2=/dev/ttyUSB99\n";
        real.busLog = std::make_shared<BusLog>([this] { return look(); });
    }

    void go();

 private:
    void startUp(SelectComForm& form);
    void search(QWidget& form);
    void panel(QWidget& form);
    void trend();
    void runProgram(QWidget& form);
    void editor(QWidget& form);
    void threads(QWidget& form);
    void setup(QWidget& form);
    void terminal(QWidget& form);
    void variables(QWidget& form);
    void bus(QWidget& form);

    void take(QWidget& form, const char* name) const;
    /// Clicks a button and visits the screen that opens, which is closed afterwards.
    void visit(QWidget& form, const char* button, const std::function<void(QWidget&)>& work);
    void waitForText(QWidget& form, const char* control, const std::string& text) const;
    void enter(QWidget& form, const char* control, const char* command);
    /// The time of day as the bus monitor shows it: it goes on with what the operator does.
    Moment look() {
        m_time.steady += m_taken;
        return m_time;
    }

    std::chrono::microseconds m_taken{12'400};  ///< by each exchange
    Moment m_time{
        {}, std::chrono::sys_days(std::chrono::year(2026) / 11 / 22) + std::chrono::hours(14)};
    std::filesystem::path m_pictures;
    SimulatedBus m_bus{{QStringLiteral("--controller"), QStringLiteral("id=1,limits=-90000:90000"),
                        QStringLiteral("--unpaced")}};
    QtProcesses m_processes;
};

void Walk::take(QWidget& form, const char* name) const {
    form.activateWindow();
    if (!QTest::qWaitForWindowActive(&form))
        throw std::runtime_error(std::string(name) + ": the screen is not in front");
    if (QWidget* focus = QApplication::focusWidget())
        focus->clearFocus();                // no caret, which blinks
    QTest::mouseMove(&form, QPoint(1, 1));  // off the button that was pressed last
    QTest::qWait(20);
    const std::string file = (m_pictures / (std::string(name) + ".png")).string();
    QImageWriter writer(QString::fromStdString(file));
    writer.setCompression(100);
    if (!writer.write(form.grab().toImage().convertToFormat(QImage::Format_RGB888)))
        throw std::runtime_error(file + ": " + writer.errorString().toStdString());
    std::cout << file << "\n";
}

void Walk::waitForText(QWidget& form, const char* control, const std::string& text) const {
    if (!QTest::qWaitFor([&] { return textOf(form, control) == text; }, 30'000))
        throw std::runtime_error(std::string(control) + " shows \"" + textOf(form, control) +
                                 "\" and not \"" + text + "\"");
}

void Walk::visit(QWidget& form, const char* button, const std::function<void(QWidget&)>& work) {
    // Runs once the opened screen waits for events.
    QTimer::singleShot(0, &form, [&] {
        try {
            QWidget* opened = QApplication::activeModalWidget();
            if (!opened || opened == &form)
                throw std::runtime_error(std::string(button) + " opens no screen");
            work(*opened);
            opened->close();
        } catch (const std::exception& error) {
            std::cerr << error.what() << "\n";
            std::exit(1);  // nothing may be thrown through the event loop
        }
    });
    click(form, button);
}

void Walk::enter(QWidget& form, const char* control, const char* command) {
    m_time.wall += std::chrono::milliseconds(4'217);
    auto& line = test::control<CommandLine>(form, control);
    QTest::keyClicks(&line, QString::fromLatin1(command));
    QTest::keyClick(&line, Qt::Key_Return);
}

void Walk::go() {
    SelectComForm form(real, directory);
    form.Form_Load();
    form.show();
    startUp(form);
}

void Walk::startUp(SelectComForm& form) {
    waitForText(form, "portDevice", "COM1 is ./com1");
    take(form, "start-up");
    choose(form, "combo", "COM2");
    take(form, "start-up-unplugged");
    choose(form, "combo", "COM1");

    gate.expectMessage("Found on Com Port:1 Baud:9600 ID:01\r\n");
    visit(form, "SearchAllZLT", [this](QWidget& screen) { search(screen); });
    visit(form, "Command25", [this](QWidget& screen) { panel(screen); });
}

void Walk::search(QWidget& form) {
    while (textOf(form, "ProgressLabel") != "Trying Port 1, Baud:9600 ID:04")
        tick(form, "StatusTimer");
    auto& timer = control<QTimer>(form, "StatusTimer");
    timer.stop();  // it holds still for the picture
    take(form, "search");
    timer.start();
}

void Walk::panel(QWidget& form) {
    waitForText(form, "ComStatusDisplay", "Communication OK");
    click(form, "EnableOn");
    control<QLineEdit>(form, "SetSpeed").setText(QStringLiteral("5000"));
    control<QLineEdit>(form, "SetPosition").setText(QStringLiteral("40000"));
    enter(form, "SendTerminalText", "ID");
    click(form, "ABS");
    for (const char* held : {"PX=12840", "EX=12838", "CUR=1200", "MST=1"})
        m_bus.say((std::string("answer ") + held).c_str());
    waitForText(form, "Stat", "MOVING");
    waitForText(form, "Pos", "12840");
    take(form, "panel-moving");
    click(form, "ISTOP");
    m_bus.say("normal");
    waitForText(form, "Stat", "IDLE");
    click(form, "ResetPos");
    click(form, "ResetEnc");
    waitForText(form, "Pos", "0");

    trend();
    runProgram(form);
    visit(form, "XThread", [this](QWidget& screen) { threads(screen); });
    visit(form, "Setup", [this](QWidget& screen) { setup(screen); });
    visit(form, "ManualTerminal", [this](QWidget& screen) { terminal(screen); });
    visit(form, "Variable", [this](QWidget& screen) { variables(screen); });
    bus(form);
}

/// A minute of two strokes, the second one into a limit, as a poll at 115200 baud would have read
/// it: with times of its own, as no run against the simulator takes the same twice.
void Walk::trend() {
    using namespace std::chrono;
    constexpr TrendTime start{};
    constexpr int passes = 5400;
    TrendRecord record(TrendRecord::anHour, start, sys_days(2026y / March / 2) + 14h + 3min);
    record.startDevice("01");
    double position = 0, speed = 0;
    for (int pass = 0; pass < passes; ++pass) {
        const double at = pass / 90.0;
        const bool forth = at > 6 && at<15, on = at> 36 && at < 47;
        const double wanted = forth ? 4000 : on ? 6000 : at > 21 && at < 26 ? -3000 : 0;
        speed += std::clamp(wanted - speed, -40.0, 40.0);
        const bool limit = position >= 60'000 && at > 20 && at < 52;
        speed = limit ? 0 : speed;
        position += speed / 90;
        AxisReading reading;
        reading.time = start + milliseconds(pass * 1000 / 90);
        reading.position = std::to_string(std::lround(position));
        reading.encoder = std::to_string(
            std::lround(position - speed / 300 - std::sin(pass / 7.0) * speed / 2000));
        reading.current = std::to_string(std::abs(speed) > 1 ? 1200 : 500);
        const int motion = std::abs(wanted - speed) > 50 ? (wanted == 0 ? 4 : 2) : 1;
        reading.status = StatusWord(limit ? 0x90 : std::abs(speed) > 1 ? motion : 0);
        reading.driverEnabled = true;
        const auto state = at > 4 && at < 30 ? ProgramState::running : ProgramState::idle;
        reading.program = AxisReading::Program{false, false, 3, state};
        if (at > 30 && at < 33)
            record.breakOff();
        else
            record.add(reading);
    }
    QWidget owner;
    TrendForm form(real, owner, std::make_shared<WindowPlaces>(), record,
                   [&] { return start + 60s; });
    form.showDevice("01");
    form.resize(form.sizeHint());
    form.show();
    take(form, "trend");
    form.hide();
}

void Walk::runProgram(QWidget& form) {
    control<ProgramEditor>(form, "OrgProgram").setProgram(program);
    gate.expectMessage("Done!");
    click(form, "CompileAll");
    visit(form, "ViewCompiled", [this](QWidget& screen) { take(screen, "listing"); });
    gate.expectMessage("Done!");
    click(form, "DownloadSAP");
    click(form, "RunProg");
    for (const char* held : {"PX=2516", "EX=2515", "CUR=1200", "MST=1", "SPC=7", "SASTAT=1"})
        m_bus.say((std::string("answer ") + held).c_str());
    waitForText(form, "ProgIndex", "7");
    waitForText(form, "Pos", "2516");
    waitForText(form, "Stat", "MOVING");
    take(form, "panel");
    visit(form, "OpenText", [this](QWidget& screen) { editor(screen); });
}

void Walk::editor(QWidget& form) {
    auto& text = control<CodeEditor>(form, "ProgramText");
    if (!QTest::qWaitFor([&] { return text.runningLine() == 8; }, 30'000))
        throw std::runtime_error("the editor does not mark the running line");
    QTest::keyClick(&text, Qt::Key_H, Qt::ControlModifier);
    control<QLineEdit>(form, "FindText").setText(QStringLiteral("waitx"));
    control<QLineEdit>(form, "ReplaceText").setText(QStringLiteral("WAITX"));
    QTest::keyClick(&text, Qt::Key_F3);
    take(form, "editor");
}

void Walk::threads(QWidget& form) {
    for (const char* held : {"SPC0=7", "SASTAT0=1", "SPC1=15", "SASTAT1=2"})
        m_bus.say((std::string("answer ") + held).c_str());
    waitForText(form, "ProgIndex1", "15");
    waitForText(form, "ProgStatus1", "Paused");
    take(form, "threads");
    click(form, "StopProg");
    m_bus.say("normal");
}

void Walk::setup(QWidget& form) {
    // Something to write, so that the marks are seen.
    control<QComboBox>(form, "RunCurrentSelect").setEditText(QStringLiteral("1200"));
    click(form, "DirPol2");
    take(form, "setup");
    click(form, "Compare");
    take(form, "setup-compare");
}

void Walk::terminal(QWidget& form) {
    for (const char* command : {"ID", "VER", "DN", "PX=1000", "PX", "X2", "WHO"})
        enter(form, "SendText", command);
    auto& address = control<QLineEdit>(form, "DeviceID");
    address.setText(QStringLiteral("00"));
    enter(form, "SendText", "PX=0");
    address.setText(QStringLiteral("01"));
    take(form, "terminal");
}

void Walk::variables(QWidget& form) {
    for (const char* command : {"V0=25", "V1=3", "V2=-2147483648", "V16=4000", "V17=-15"})
        enter(form, "SendText", command);
    waitForText(form, "V17", "-15");
    take(form, "variables");
}

void Walk::bus(QWidget& form) {
    enter(form, "SendTerminalText", "HSPD");
    choose(form, "DeviceIDComboTerminal", "05");  // there is none
    m_taken = std::chrono::microseconds(512'300);
    enter(form, "SendTerminalText", "PX");
    click(form, "Bus");
    auto& monitor = *form.findChild<BusForm*>();
    take(monitor, "bus");
    monitor.close();
}

}  // namespace
}  // namespace zlt::pictures

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: pictures FOLDER\n";
        return 2;
    }
    const std::filesystem::path pictures = std::filesystem::absolute(argv[1]);
    ::testing::GTEST_FLAG(throw_on_failure) = true;  // a box that nobody expected ends the walk
    qputenv("TZ", "UTC");  // the time of day, as the rest, is the same everywhere
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("ZLT-R-NX-42"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    try {
        zlt::pictures::Walk(pictures).go();
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    return 0;
}
