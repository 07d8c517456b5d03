#pragma once

#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>

#include "panel/MotionCommands.h"
#include "panel/OutputCommands.h"
#include "panel/PanelSession.h"
#include "panel/StateReport.h"
#include "panel/TrendRecord.h"
#include "terminal/TerminalTalk.h"
#include "widgets/Screen.h"
#include "widgets/SideScreen.h"

namespace zlt {

class BusForm;
class LinkFrame;
class MotionFrame;
class OutputsFrame;
class ProgramDraft;
class ProgramFrame;
class RunControlFrame;
class ScreensFrame;
class StatusFrame;
class StopFrame;
class TerminalFrame;
class TrendForm;

/// The control panel: places the frames, owns the poll, and passes on between the operator
/// and the rules. Lives from one connect to its close.
class MainControlForm : public Screen, private PanelView {
    Q_OBJECT

 public:
    /// `draft` is the program box's text, which outlives the panel; `notes` is what is known of the
    /// controllers by now, and the panel adds to it; `places` is where the windows beside it stood.
    MainControlForm(const Services& world, ProgramDraft& draft, QWidget* parent,
                    std::shared_ptr<DeviceNotes> notes = std::make_shared<DeviceNotes>(),
                    std::shared_ptr<WindowPlaces> places = std::make_shared<WindowPlaces>());
    ~MainControlForm() override;

    /// Loads the panel, before it is shown: its messages stand over the calling screen. Part
    /// of the caller's handler; passes an end of the program on.
    void Form_Load(const Connection& connection);

    /// The controller that is addressed.
    [[nodiscard]] const Connection& connection() const { return m_session.link.connection; }

    /// Puts the cursor into the program box once the panel is shown.
    void startInProgram() { m_startsInProgram = true; }

    [[nodiscard]] const ScreenLink& link() const { return m_session.link; }

 protected:
    void showEvent(QShowEvent* event) override;

 private:
    std::chrono::milliseconds Timer1_Timer();
    /// A pass of the poll while the program editor stands over the panel.
    std::chrono::milliseconds pollUnderEditor();
    void Command2_Click();
    void Setup_Click();
    void XThread_Click();
    void Trend_Click();
    void Bus_Click();
    void CopyState_Click();

    void closeScreen() override { Command2_Click(); }
    void heldOff() override { m_session.holdOff(); }
    /// Lends the port to another screen and shows that until it is closed; `own` is what that
    /// screen needs beside the link. A stop pressed there ends the demo.
    template <class Form, class... Own>
    void showOverPanel(Own&... own);

    /// What the controller has accepted and not in use yet, or not stored.
    void showDeviceNote();

    /// A stop with what stands in the boxes.
    std::function<void()> fieldStop(void (MotionCommands::*stop)(MotionFields&));
    void sendMotionCommand(std::string_view command);
    void placeFrames();

    void showState(const PanelState& state) override;
    void showReading(const AxisReading& reading) override;
    void fillSettings(std::string_view speed, std::string_view acceleration) override;
    void resetSync() override;
    void deviceSwitched(std::string_view before, std::string_view now) override;
    void forgetProgram() override;

    PanelState m_shown;
    PanelSession m_session;
    MotionCommands m_motion;
    OutputCommands m_outputs;
    // The frames, in the order of the tab key.
    LinkFrame* m_linkFrame;
    StatusFrame* m_statusFrame;
    OutputsFrame* m_outputsFrame;
    ScreensFrame* m_screensFrame;
    StopFrame* m_stopFrame;
    MotionFrame* m_motionFrame;
    ProgramFrame* m_programFrame;
    RunControlFrame* m_runControlFrame;
    TerminalFrame* m_terminalFrame;
    ReadOuts m_readOuts;
    CommandHistory m_terminalHistory;
    std::unique_ptr<BusForm> m_bus;  ///< once it has been opened
    QTimer m_timer1{this};
    TrendRecord m_trend;
    std::shared_ptr<WindowPlaces> m_places;
    std::unique_ptr<TrendForm> m_trendForm;  ///< once it was opened
    bool m_startsInProgram = false;
};

}  // namespace zlt
