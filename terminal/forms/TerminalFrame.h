#pragma once

#include <QGroupBox>
#include <memory>
#include <string>

#include "link/PanelLink.h"
#include "terminal/TerminalTalk.h"
#include "terminal/forms/PaintPace.h"
#include "widgets/Handlers.h"

namespace Ui {
class TerminalFrame;
}

namespace zlt {

/// The "Terminal" frame of the main screen: one command by hand, on the main screen's port,
/// and the last reply as it came.
class TerminalFrame : public QGroupBox, private ReplyBoxView {
    Q_OBJECT

 public:
    explicit TerminalFrame(QWidget* parent = nullptr);
    ~TerminalFrame() override;

    /// `link` is used as long as the frame's controls are worked.
    void connectTo(Handlers& handlers, PanelLink& link);

    /// Chooses the device to talk to (Latin-1).
    void showDevice(std::string_view deviceId);
    /// The main screen works another device: goes along, unless one of its own was chosen.
    void followDevice(std::string_view before, std::string_view now);
    void showLive(bool live);

 private:
    void SendTerminalText_Enter();
    void SendTerminalText_Recall();

    void requestWritten() override;
    void growReply(char character) override;
    void replyEnded() override { showReplySoFar(); }
    void showInsteadOfReply(std::string_view text) override;

    void showReplySoFar();

    std::unique_ptr<Ui::TerminalFrame> m_ui;
    PanelLink* m_link = nullptr;
    QString m_lastCommand;
    std::string m_reply;
    PaintPace m_pace;
};

}  // namespace zlt
