#pragma once

#include <QGroupBox>
#include <functional>
#include <memory>
#include <optional>

#include "link/Values.h"
#include "programs/RunControl.h"
#include "widgets/Handlers.h"

namespace Ui {
class RunControlFrame;
}

namespace zlt {

/// The run controls of the main screen.
class RunControlFrame : public QGroupBox {
    Q_OBJECT

 public:
    /// The buttons work on this link, which outlives the frame. `sendMotionCommand` is that of
    /// RunControl; `openThreads` opens the second-thread screen.
    RunControlFrame(Handlers& handlers, PanelLink& link,
                    std::function<void(std::string_view)> sendMotionCommand,
                    const std::function<void()>& openThreads, QWidget* parent);
    ~RunControlFrame() override;

    /// The controller has not said whether it runs at power-up: it is another one now, or was
    /// told otherwise elsewhere.
    void forgetRunOnBoot();
    /// Enables the second-thread screen's button where the firmware has a second thread.
    void gateFeatures(FirmwareVersion firmware);

 private:
    void runOnBoot_Click(bool on);
    void showRunOnBoot(std::optional<bool> on);

    std::unique_ptr<Ui::RunControlFrame> m_ui;
    RunControl m_control;
    std::optional<bool> m_runOnBoot;  ///< nothing until the controller has said
};

}  // namespace zlt
