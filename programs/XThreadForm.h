#pragma once

#include <QTimer>
#include <memory>

#include "link/ScreenLink.h"
#include "programs/RunControl.h"
#include "widgets/Screen.h"

namespace Ui {
class XThreadForm;
}

namespace zlt {

class ReadOut;

/// Controls and watches the controller's two program threads one by one, over its own port.
class XThreadForm : public Screen, private LinkListener {
    Q_OBJECT

 public:
    XThreadForm(const Services& services, const LinkHandOver& handOver, QWidget* parent);
    ~XThreadForm() override;

    /// Opens the port, before the screen is shown.
    void Form_Load();
    /// Whether the operator stopped the axis from here, by a thread's Stop or Pause.
    bool stoppedAxis() const { return m_stoppedAxis; }

 private:
    void Timer1_Timer();
    void Command1_Click();
    void closeScreen() override { Command1_Click(); }
    void connectHandlers();
    void commChanged(bool connected) override;
    void exchangeTimedOut() override {}
    void portLost() override {}

    /// Sends a run command to the selected thread.
    void sendToThread(RunCommand command);
    void stopMotion();
    /// Asks for a thread's state and shows its words, where the code has any.
    void showState(const char* query, ReadOut& state);
    void showLive(bool live);

    std::unique_ptr<Ui::XThreadForm> m_ui;
    ScreenLink m_link;
    bool m_stoppedAxis = false;
    QTimer m_timer1{this};
};

}  // namespace zlt
