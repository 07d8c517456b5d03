#include "faults/StartUpWorld.h"

#include <QApplication>
#include <QTest>
#include <ctime>
#include <fstream>

namespace zlt::test {

StartUpWorld::StartUpWorld() {
    listPort(simulator.device());
    startUp.Form_Load();
    startUp.show();
}

void StartUpWorld::listPort(const std::string& device) {
    std::ofstream("zlt-r-485.ports") << "COM1=" << device << "\n";
    directory.refresh();
}

void StartUpWorld::clickAndWork(QWidget& form, const char* button, const Work& work) {
    QTimer::singleShot(0, &form, [&form, button, work] {
        QWidget* screen = QApplication::activeModalWidget();
        if (!screen || screen == &form) {
            ADD_FAILURE() << button << " shows no screen";
            return;
        }
        try {
            work(*screen);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
            screen->close();
        }
    });
    click(form, button);
}

void StartUpWorld::expectGoodConnection() {
    connect([](QWidget& panel) {
        EXPECT_EQ(textOf(panel, "ComStatusDisplay"), "Communication OK");
        EXPECT_EQ(textOf(panel, "Version"), "V322");
        click(panel, "Command2");
    });
    EXPECT_TRUE(startUp.isVisible());
    EXPECT_FALSE(programEnd.ended());
}

bool StartUpWorld::wait(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 10'000);
}

void StartUpWorld::expectIdle() {
    QTest::qWait(50);
    const std::clock_t before = std::clock();
    QTest::qWait(300);
    EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 20) << "a lost port must not spin";
}

}  // namespace zlt::test
