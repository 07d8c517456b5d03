#pragma once

#include <QTimer>
#include <array>
#include <chrono>
#include <memory>

#include "programs/ThreadWatch.h"
#include "widgets/Screen.h"

namespace Ui {
class XThreadForm;
}

namespace zlt {

/// Controls and watches the controller's two program threads one by one, over its own port.
class XThreadForm : public LinkedScreen {
    Q_OBJECT

 public:
    XThreadForm(const Services& world, const LinkHandOver& handOver, QWidget* parent);
    ~XThreadForm() override;

    /// Opens the port, before the screen is shown.
    void Form_Load();

 private:
    std::chrono::milliseconds Timer1_Timer();
    void Command1_Click();
    void closeScreen() override { Command1_Click(); }
    void heldOff() override { showLive(false); }
    void connectHandlers();

    /// Sends a run command to the selected thread.
    void sendToThread(RunCommand command);
    /// Puts the next pass off where what was just sent was not answered.
    void armTimer();
    void showPass(const ThreadPass& pass);
    void showLive(bool live);

    std::unique_ptr<Ui::XThreadForm> m_ui;
    ThreadWatch m_watch;
    QTimer m_timer1{this};
};

}  // namespace zlt
