#pragma once

#include <QGroupBox>
#include <functional>
#include <memory>

#include "link/DeviceNotes.h"
#include "widgets/Handlers.h"

namespace Ui {
class ScreensFrame;
}

namespace zlt {

/// The way to the other screens, and what is left to do there.
class ScreensFrame : public QGroupBox {
    Q_OBJECT

 public:
    /// What each button does.
    struct Actions {
        std::function<void()> setup;
        std::function<void()> terminal;
        std::function<void()> variables;
        std::function<void()> trend;
        std::function<void()> bus;
        std::function<void()> copyState;
    };
    ScreensFrame(Handlers& handlers, Actions actions, QWidget* parent);
    ~ScreensFrame() override;

    /// Says what the controller has accepted and not in use yet, or not stored.
    void showDeviceNote(const DeviceNote& note);

 private:
    std::unique_ptr<Ui::ScreensFrame> m_ui;
};

}  // namespace zlt
