#include "bench/FirstPaint.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <cstdio>
#include <iostream>
#include <map>
#include <stdexcept>

#include "app/Picture.h"
#include "app/SelectComForm.h"
#include "bench/Wire.h"
#include "bench/World.h"

namespace zlt::bench {
namespace {

constexpr const char* startUpScreen = "start-up";
constexpr const char* emptyWindow = "empty";
constexpr int widgetsOfEmptyWindow = 40;
constexpr int repetitionsARound = 4;
constexpr double mostOfEmptyWindow = 1.5;
constexpr int startPatienceMs = 30'000;

/// Tells when the window's first paint is over and done: on the screen, not only drawn.
class PaintWatch final : public QApplication {
 public:
    PaintWatch(int& argc, char** argv) : QApplication(argc, argv) {}

    bool notify(QObject* receiver, QEvent* event) override {
        ++m_depth;
        const bool result = QApplication::notify(receiver, event);
        --m_depth;
        if (receiver == watched && event->type() == QEvent::Paint)
            m_painted = true;
        if (m_painted && m_depth == 0) {
            m_painted = false;
            watched = nullptr;
            painted();
        }
        return result;
    }

    QWidget* watched = nullptr;
    std::function<void()> painted;

 private:
    int m_depth = 0;
    bool m_painted = false;
};

/// Of the kinds that the start-up screen has too.
QWidget* makeWidget(int number) {
    switch (number % 4) {
        case 0:
            return new QLabel(QString::number(number));
        case 1:
            return new QLineEdit(QString::number(number));
        case 2:
            return new QPushButton(QString::number(number));
        default:
            return new QComboBox;
    }
}

std::unique_ptr<QWidget> makeEmptyWindow() {
    auto window = std::make_unique<QWidget>();
    auto* grid = new QGridLayout(window.get());
    constexpr int columns = 4;
    for (int number = 0; number < widgetsOfEmptyWindow; ++number)
        grid->addWidget(makeWidget(number), number / columns, number % columns);
    return window;
}

Milliseconds timeOnce(const char* window) {
    QProcess process;
    const auto begin = Clock::now();
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--first-paint"), QLatin1String(window)});
    if (!process.waitForFinished(startPatienceMs) || process.exitCode() != 0)
        throw std::runtime_error("first paint of " + std::string(window) + ": " +
                                 process.readAllStandardError().toStdString());
    const Clock::duration painted(process.readAllStandardOutput().trimmed().toLongLong());
    return painted - begin.time_since_epoch();
}

}  // namespace

int showFirstPaint(const std::string& window, int argc, char** argv) {
    PaintWatch application(argc, argv);
    ThrowingGate gate;
    World world(gate);
    world.listPort("/dev/null");
    bool soughtTooSoon = false;
    application.painted = [&] {
        std::cout << Clock::now().time_since_epoch().count() << std::endl;
        // A list that has been read stands for a look at this machine's ports.
        soughtTooSoon = world.directory.fromList();
        QCoreApplication::quit();
    };

    std::unique_ptr<QWidget> shown;
    if (window == startUpScreen) {
        QApplication::setWindowIcon(Picture::icon());
        auto form = std::make_unique<SelectComForm>(world.services, world.directory);
        form->Form_Load();
        shown = std::move(form);
    } else {
        shown = makeEmptyWindow();
    }
    application.watched = shown.get();
    shown->show();
    QApplication::exec();
    if (soughtTooSoon)
        std::cerr << "The start-up screen looks for ports before it is painted.\n";
    return soughtTooSoon ? 1 : 0;
}

void measureFirstPaint(int rounds, Judge& judge) {
    std::printf("\nFrom a program's start to its first paint\n");
    std::map<std::string, std::vector<Milliseconds>> times;
    for (int repetition = 0; repetition < rounds * repetitionsARound; ++repetition)
        for (const char* window : {startUpScreen, emptyWindow})
            times[window].push_back(timeOnce(window));
    const Milliseconds empty = median(times[emptyWindow]);
    const Milliseconds startUp = median(times[startUpScreen]);
    std::printf("%-36s %8.1f ms\n", "an empty window of 40 widgets", empty.count());
    std::printf("%-36s %8.1f ms  %6.2f  %s\n", "the start-up screen", startUp.count(),
                startUp / empty, judge.atMost(startUp / empty, mostOfEmptyWindow).c_str());
    std::fflush(stdout);
}

}  // namespace zlt::bench
