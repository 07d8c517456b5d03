#pragma once

#include "panel/forms/MainControlForm.h"
#include "programs/forms/ProgramDraft.h"
#include "support/FormDriver.h"
#include "support/World.h"

namespace zlt::test {

/// The control panel over a scripted controller.
struct PanelWorld : World {
    PanelWorld() { answerAsController(); }

    /// Loads and shows the panel, as connecting does.
    void open() {
        form.Form_Load({{3}, "9600", "01"});
        form.show();
    }
    /// The same on a controller of this firmware, with the load's commands taken already.
    void load(const std::string& version = "V322") {
        bus.replies["VER"] = version;
        open();
        bus.requests.clear();
    }

    /// The commands sent since the last call: "CUR|PX".
    std::string sent() {
        std::string commands;
        for (const std::string& command : bus.takeCommands())
            commands += (commands.empty() ? "" : "|") + command;
        return commands;
    }
    std::string sentBy(const char* button) {
        click(form, button);
        return sent();
    }
    std::string sentByTick() {
        tick(form, "Timer1");
        return sent();
    }
    std::string shown(const char* name) { return shownOn(form, name); }

    ProgramDraft draft{services};
    MainControlForm form{services, draft, nullptr};
};

}  // namespace zlt::test
