#pragma once

#include <QGroupBox>
#include <memory>

#include "panel/PanelView.h"

namespace Ui {
class StopFrame;
}

namespace zlt {

class StopButton;

/// The two stops, large and always in the same place, titled with the one device that they stop.
class StopFrame : public QGroupBox {
    Q_OBJECT

 public:
    explicit StopFrame(QWidget* parent);
    ~StopFrame() override;

    /// The ramped stop and the immediate one.
    [[nodiscard]] StopButton& stop() const;
    [[nodiscard]] StopButton& abort() const;

    void showState(const PanelState& state);

 private:
    std::unique_ptr<Ui::StopFrame> m_ui;
};

}  // namespace zlt
