#pragma once

#include <QWidget>
#include <memory>

#include "panel/AxisReading.h"
#include "panel/OutputCommands.h"
#include "panel/PanelView.h"
#include "widgets/Handlers.h"

namespace Ui {
class OutputsFrame;
}

namespace zlt {

/// Digital outputs, position latch and synchronisation output.
class OutputsFrame : public QWidget {
    Q_OBJECT

 public:
    /// The rules are used as long as the controls are worked.
    OutputsFrame(Handlers& handlers, OutputCommands& outputs, QWidget* parent);
    ~OutputsFrame() override;

    void showState(const PanelState& state);
    void showReading(const AxisReading& reading);
    /// Puts condition and position back to "=" and "0".
    void resetSync();
    /// Puts the output's lamp out.
    void forgetProgram();
    /// Clears what the operator's last clicks left: they were another device's.
    void clearMarks();

 private:
    [[nodiscard]] SyncFields syncFields() const;
    void switchSync(OutputCommands& outputs, bool on);

    std::unique_ptr<Ui::OutputsFrame> m_ui;
};

}  // namespace zlt
