#pragma once

#include <gtest/gtest.h>

#include <QApplication>

#include "panel/MainControlForm.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {

using Commands = std::vector<std::string>;

/// The panel, loaded over a scripted controller at rest.
class PanelWorld : public ::testing::Test, public World {
 protected:
    PanelWorld() {
        answerAsController();
        form.Form_Load({{3}, "9600", "01"});
        form.show();
        bus.takeCommands();
    }
    Commands commandsOf(QWidget& screen, const char* button) {
        click(screen, button);
        return bus.takeCommands();
    }
    bool polls() {
        bus.takeCommands();
        tick(form, "Timer1");
        return !bus.takeCommands().empty();
    }
    /// Takes these steps on the screen that a button opens, and closes it by its frame.
    void onScreen(const char* button, const std::function<void(QWidget& screen)>& steps) {
        QTimer::singleShot(0, &form, [=, this] {
            QWidget* screen = QApplication::activeModalWidget();
            ASSERT_TRUE(screen);
            EXPECT_FALSE(polls());
            steps(*screen);
            screen->close();
            EXPECT_FALSE(screen->isVisible());
        });
        click(form, button);
        EXPECT_TRUE(polls());
    }

    MainControlForm form{services, nullptr};
};

}  // namespace zlt::test
