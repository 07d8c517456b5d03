#pragma once

#include <QFrame>
#include <memory>

namespace Ui {
class StopFrame;
}

namespace zlt {

/// The two stops, large and always in the same place.
class StopFrame : public QFrame {
    Q_OBJECT

 public:
    explicit StopFrame(QWidget* parent = nullptr);
    ~StopFrame() override;

    const Ui::StopFrame& controls() const { return *m_ui; }

 private:
    std::unique_ptr<Ui::StopFrame> m_ui;
};

}  // namespace zlt
