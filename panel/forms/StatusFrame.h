#pragma once

#include <QGroupBox>
#include <memory>
#include <string_view>

#include "panel/PanelView.h"

namespace Ui {
class StatusFrame;
}

namespace zlt {

class ReadOut;

/// What the poll reads: the axis and the program, as they are now.
class StatusFrame : public QGroupBox {
    Q_OBJECT

 public:
    explicit StatusFrame(QWidget* parent = nullptr);
    ~StatusFrame() override;

    void showValue(Value value, std::string_view text);
    /// The three lamps of this frame; another indicator is none of its business.
    void showIndicator(Indicator indicator, bool lit);
    void showLive(bool live);

    const Ui::StatusFrame& controls() const { return *m_ui; }

 private:
    ReadOut& readOut(Value value) const;

    std::unique_ptr<Ui::StatusFrame> m_ui;
};

}  // namespace zlt
