#pragma once

#include <QGroupBox>
#include <memory>
#include <string_view>

#include "link/PanelLink.h"
#include "terminal/forms/Transcript.h"
#include "widgets/Handlers.h"

namespace Ui {
class TerminalFrame;
}

namespace zlt {

/// The "Terminal" frame of the main screen: one command by hand, on the main screen's port,
/// and the last reply as it came.
class TerminalFrame : public QGroupBox {
    Q_OBJECT

 public:
    /// `link` is used as long as the frame's controls are worked.
    TerminalFrame(Handlers& handlers, PanelLink& link, QWidget* parent);
    ~TerminalFrame() override;

    /// Chooses the device to talk to (Latin-1).
    void showDevice(std::string_view deviceId);
    /// The main screen works another device: goes along, unless one of its own was chosen.
    void followDevice(std::string_view before, std::string_view now);
    void showLive(bool live);

 private:
    void SendTerminalText_Enter(PanelLink& link);
    void SendTerminalText_Recall();
    void showReply(std::string_view soFar);

    std::unique_ptr<Ui::TerminalFrame> m_ui;
    QString m_lastCommand;
    PaintPace m_pace;
};

}  // namespace zlt
