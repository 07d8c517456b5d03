#pragma once

#include <memory>

#include "link/PanelLink.h"
#include "terminal/TerminalTalk.h"
#include "widgets/Screen.h"

namespace Ui {
class TerminalForm;
}

namespace zlt {

/// Any command by hand, with a transcript of what went to and fro. Has the port to itself
/// while it is shown.
class TerminalForm : public LinkedScreen {
    Q_OBJECT

 public:
    /// `history` outlives the screen: the commands sent at its earlier showings are in it.
    TerminalForm(const Services& world, const LinkHandOver& handedOver, CommandHistory& history,
                 QWidget* parent);
    ~TerminalForm() override;

    /// Opens the port, before the screen is shown. Part of the caller's handler.
    void Form_Load();

 protected:
    void showEvent(QShowEvent* event) override;

 private:
    void SendText_Enter();
    void SendText_Recall();
    void SendText_Older();
    void SendText_Newer();
    void Command2_Click();
    void Close_Click();
    void ISTOP_Press();

    void closeScreen() override { Close_Click(); }
    void connectHandlers();
    /// Holds one conversation in the transcript.
    void talk(std::string_view address, std::string_view command);
    void focusEntry();

    std::unique_ptr<Ui::TerminalForm> m_ui;
    ScreenLink m_link;
    QString m_lastCommand;
    CommandHistory& m_history;
};

}  // namespace zlt
