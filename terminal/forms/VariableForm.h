#pragma once

#include <QTimer>
#include <chrono>
#include <memory>

#include "terminal/VariableWatch.h"
#include "widgets/ReadOut.h"
#include "widgets/Screen.h"

namespace Ui {
class VariableForm;
}

namespace zlt {

/// The variables V0 to V31 of the standalone programs, as fast as the bus allows, and a line
/// for commands. Has the port to itself while it is shown.
class VariableForm : public LinkedScreen {
    Q_OBJECT

 public:
    VariableForm(const Services& world, const LinkHandOver& handedOver, QWidget* parent);
    ~VariableForm() override;

    /// Opens the port and starts the refresh, before the screen is shown. Part of the caller's
    /// handler.
    void Form_Load();

 protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    std::chrono::milliseconds Timer1_Timer();
    void SendText_Enter();
    void Close_Click();

    void closeScreen() override { Close_Click(); }
    void heldOff() override { showLive(false); }
    void connectHandlers();
    [[nodiscard]] std::array<ReadOut*, variableCount> boxes() const;
    void showLive(bool live);
    void showNote();

    std::unique_ptr<Ui::VariableForm> m_ui;
    VariableWatch m_watch;
    QTimer m_timer1{this};
    bool m_painted = false;
};

}  // namespace zlt
