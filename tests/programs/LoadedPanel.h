#pragma once

#include <gtest/gtest.h>

#include "support/PanelWorld.h"

namespace zlt::test {

using Commands = std::vector<std::string>;

/// The panel, loaded over a scripted controller at rest.
class LoadedPanel : public ::testing::Test, public PanelWorld {
 protected:
    LoadedPanel() { load(); }

    Commands commandsOf(QWidget& screen, const char* button) {
        click(screen, button);
        return bus.takeCommands();
    }
    bool polls() {
        bus.takeCommands();
        return !sentByTick().empty();
    }
    /// Takes these steps on the screen that a button opens, and closes it by its frame.
    void onScreen(const char* button, const std::function<void(QWidget& screen)>& steps) {
        clickAndWork(form, button, [&](QWidget& screen) {
            EXPECT_FALSE(polls());
            steps(screen);
            screen.close();
            EXPECT_FALSE(screen.isVisible());
        });
        EXPECT_TRUE(polls());
    }
};

}  // namespace zlt::test
