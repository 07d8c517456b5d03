#pragma once

#include <QWidget>
#include <memory>

#include "panel/OutputCommands.h"
#include "widgets/Handlers.h"

namespace Ui {
class OutputsFrame;
}

namespace zlt {

/// Digital outputs, position latch and synchronisation output.
class OutputsFrame : public QWidget, public OutputsView {
    Q_OBJECT

 public:
    explicit OutputsFrame(QWidget* parent = nullptr);
    ~OutputsFrame() override;

    void showOutput(bool on);
    void resetSync();
    /// Clears what the operator's last clicks left: they were another device's.
    void clearMarks();
    void showLive(bool live);

    /// Connects the buttons and check boxes to the rules.
    void connectTo(Handlers& handlers, OutputCommands& outputs);

    std::optional<SyncCondition> syncCondition() const override;
    std::string syncPosition() const override;
    void pointToSyncPosition() override;
    void markSyncEnabled(bool enabled) override;
    void markLatch(bool on) override;
    bool outputShown() const override;

 private:
    std::unique_ptr<Ui::OutputsFrame> m_ui;
};

}  // namespace zlt
