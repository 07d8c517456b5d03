#pragma once

#include <QTimer>
#include <chrono>
#include <memory>

#include "panel/MotionCommands.h"
#include "panel/OutputCommands.h"
#include "panel/PanelSession.h"
#include "widgets/Screen.h"

namespace Ui {
class MainControlForm;
}

namespace zlt {

class ProgramDraft;

/// The control panel: places the frames, owns the poll, and passes on between the operator
/// and the rules. Lives from one connect to its close.
class MainControlForm : public Screen, private PanelView {
    Q_OBJECT

 public:
    /// `draft` is the program box's text, which outlives the panel.
    MainControlForm(const Services& world, ProgramDraft& draft, QWidget* parent);
    ~MainControlForm() override;

    /// Loads the panel, before it is shown: its messages stand over the calling screen. Part
    /// of the caller's handler; passes an end of the program on.
    void Form_Load(const Connection& connection);

    /// Puts the cursor into the program box once the panel is shown.
    void startInProgram() { m_startsInProgram = true; }

    const ScreenLink& link() const { return m_session.link; }

 protected:
    void showEvent(QShowEvent* event) override;

 private:
    std::chrono::milliseconds Timer1_Timer();
    void SelectedDeviceID_Click(int index);
    void Command5_Click();
    void About_Click();
    void Help_Click();
    void Command2_Click();
    void Setup_Click();
    void ManualTerminal_Click();
    void Variable_Click();
    void XThread_Click();

    void closeScreen() override { Command2_Click(); }
    void heldOff() override;
    /// Lends the port to another screen and shows that until it is closed. A stop pressed there
    /// ends the demo.
    template <class Form>
    void showOverPanel();

    void connectHandlers();
    void connectFrames(ProgramDraft& draft);
    /// Connects a table's buttons, wherever they are on the screen.
    void connectTable(std::span<const CommandButton> buttons,
                      void (MotionCommands::*press)(const CommandButton&));

    void showLinkText(std::string_view text) override;
    void showLinkState(std::string_view text, Rgb colour) override;
    void showLive(bool live) override;
    void showSelectedDevice(std::string_view deviceId) override;
    void showIdentity(std::string_view id) override;
    void showVersion(std::string_view version) override;
    void showBaudRate(std::string_view baudRate) override;
    void showPortRemark(std::string_view remark) override;
    void showSpeed(std::string_view speed) override;
    void showAcceleration(std::string_view acceleration) override;
    void resetSync() override;
    void showDeviceSwitch(std::string_view before, std::string_view now) override;
    void gateFeatures(FirmwareVersion firmware) override;
    void showReading(const AxisReading& reading) override;
    void forgetProgram() override;
    void showDemo(bool on) override;

    std::unique_ptr<Ui::MainControlForm> m_ui;
    PanelSession m_session;
    MotionCommands m_motion;
    OutputCommands m_outputs;
    QTimer m_timer1{this};
    bool m_startsInProgram = false;
};

}  // namespace zlt
