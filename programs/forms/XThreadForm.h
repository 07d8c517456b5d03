#pragma once

#include <QTimer>
#include <memory>

#include "link/ScreenLink.h"
#include "programs/RunControl.h"
#include "widgets/LinkedScreen.h"

namespace Ui {
class XThreadForm;
}

namespace zlt {

class ReadOut;

/// Controls and watches the controller's two program threads one by one, over its own port.
class XThreadForm : public LinkedScreen, private LinkListener {
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
    void commChanged(bool connected) override;
    void exchangeTimedOut() override {}
    void portLost() override {}

    /// Sends a run command to the selected thread.
    void sendToThread(RunCommand command);
    /// The same, and stops the axis at once.
    void sendToThreadAndStop(RunCommand command);
    std::string threadCommand(RunCommand command) const;
    /// Asks for a thread's state and shows its words, where the code has any.
    void showState(const char* query, ReadOut& state);
    void showLive(bool live);

    std::unique_ptr<Ui::XThreadForm> m_ui;
    ScreenLink m_link;
    QTimer m_timer1{this};
};

}  // namespace zlt
