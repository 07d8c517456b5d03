#pragma once

#include <QTimer>
#include <array>
#include <memory>

#include "link/PanelLink.h"
#include "widgets/LinkedScreen.h"
#include "widgets/ReadOut.h"

namespace Ui {
class VariableForm;
}

namespace zlt {

/// The variables V0 to V31 of the standalone programs, as fast as the bus allows, and a line
/// for commands. Has the port to itself while it is shown.
class VariableForm : public LinkedScreen, private LinkListener {
    Q_OBJECT

 public:
    VariableForm(const Services& world, const LinkHandOver& handedOver, QWidget* parent);
    ~VariableForm() override;

    /// Opens the port and starts the refresh, before the screen is shown. Part of the caller's
    /// handler.
    void Form_Load();

 protected:
    void showEvent(QShowEvent* event) override;

 private:
    std::chrono::milliseconds Timer1_Timer();
    void SendText_Enter();
    void Close_Click();

    void closeScreen() override { Close_Click(); }
    void heldOff() override { showLive(false); }
    void showLive(bool live);
    void connectHandlers();
    void commChanged(bool connected) override;
    void exchangeTimedOut() override {}
    void portLost() override {}

    std::unique_ptr<Ui::VariableForm> m_ui;
    ScreenLink m_link;
    std::array<ReadOut*, 32> m_boxes{};
    QTimer m_timer1{this};
};

}  // namespace zlt
