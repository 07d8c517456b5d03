#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <memory>

#include "link/ScreenLink.h"
#include "parameters/forms/ChangeMark.h"
#include "parameters/forms/CompareGrid.h"
#include "parameters/forms/SetupParameters.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {

using Commands = std::vector<std::string>;
using State = Standing;

/// What a screen that holds the scripted controller's set reads and writes.
inline const Commands wholeUpload{"DN",  "CURR", "CURI",   "MS",    "POL", "DL",
                                  "LCA", "HCA",  "DOBOOT", "SLOAD", "DB",  "RT"};
inline const Commands wholeDown{"CURR=800", "CURI=300", "MS=16",  "POL=5",    "DN", "DL=1",
                                "SLOAD=3",  "HCA=20",   "LCA=10", "DOBOOT=6", "DB", "RT=1"};

/// The setup screen over a scripted controller that holds a whole set.
class SetupWorld : public ::testing::Test, public World {
 protected:
    SetupWorld() {
        bus.replies = {{"DN", "ZLD42"}, {"CURR", "800"}, {"CURI", "300"}, {"MS", "16"},
                       {"POL", "5"},    {"DL", "1"},     {"SLOAD", "3"},  {"LCA", "10"},
                       {"HCA", "20"},   {"DOBOOT", "6"}, {"DB", "3"},     {"RT", "1"}};
    }
    /// Opens a screen, as the panel does, and returns the commands of its upload.
    Commands open(int firmware = 322) {
        handOver.firmware = {firmware};
        form = std::make_unique<SetupParameters>(services, handOver, nullptr);
        form->Form_Load();
        form->show();
        return bus.takeCommands();
    }
    Commands commandsOf(const char* button) {
        click(*form, button);
        return bus.takeCommands();
    }
    /// A Down that goes through.
    Commands down() {
        gate.expectMessage("Download Done!");
        return commandsOf("DownloadPar");
    }
    void type(const char* name, const char* utf8) {
        auto& widget = control<QWidget>(*form, name);
        auto* box = qobject_cast<QComboBox*>(&widget);
        auto* field = box ? box->lineEdit() : qobject_cast<QLineEdit*>(&widget);
        field->setFocus();
        field->setText(QString::fromUtf8(utf8));
        control<QWidget>(*form, "Close").setFocus();  // leaving the field must change nothing
    }
    std::string shown(const char* name) { return shownOn(*form, name); }
    State mark(const std::string& name) {
        return control<ChangeMark>(*form, (name + "Mark").c_str()).standing();
    }

    /// What stands in the table that compares, the heading apart, and opens it for that.
    std::string compared() {
        if (shown("Compare") == "off")
            click(*form, "Compare");
        const std::string text = control<CompareGrid>(*form, "compareGrid").text().toStdString();
        return text.substr(text.find('\n') + 1);
    }
    /// Forgets what the controllers have accepted, as a new start of the program does.
    void forgetNotes() { handOver.notes = std::make_shared<DeviceNotes>(); }

    LinkHandOver handOver{true, true, {{3}, "9600", "01"}, {322}};
    std::unique_ptr<SetupParameters> form;
};

}  // namespace zlt::test
