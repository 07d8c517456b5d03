#pragma once

#include <QGroupBox>
#include <memory>
#include <string_view>

namespace Ui {
class StopFrame;
}

namespace zlt {

/// The two stops, large and always in the same place, titled with the one device that they stop.
class StopFrame : public QGroupBox {
    Q_OBJECT

 public:
    explicit StopFrame(QWidget* parent = nullptr);
    ~StopFrame() override;

    void showDevice(std::string_view deviceId);

    const Ui::StopFrame& controls() const { return *m_ui; }

 private:
    std::unique_ptr<Ui::StopFrame> m_ui;
};

}  // namespace zlt
