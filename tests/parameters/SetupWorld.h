#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "parameters/ChangeMark.h"
#include "parameters/SetupParameters.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {

using Commands = std::vector<std::string>;

/// The setup screen over a scripted controller that holds a whole set.
class SetupWorld : public ::testing::Test, public World {
 protected:
    SetupWorld();

    /// Opens a screen, as the panel does. The commands of its upload are not taken yet.
    void open(int firmware = 322);
    /// A screen that has read the set.
    void openRead(int firmware = 322);

    Commands commandsOf(const char* button);
    void type(const char* control, const char* utf8);
    std::string shown(const char* control) { return textOf(*form, control); }
    bool checked(const char* control);
    bool enabled(const char* control);
    ChangeMark::State mark(const char* control);

    /// The controller falls silent at this command and answers the others.
    void silence(const std::string& command);

    LinkHandOver handOver{true, true, {{3}, "9600", "01"}, {322}};
    std::unique_ptr<SetupParameters> form;
};

}  // namespace zlt::test
