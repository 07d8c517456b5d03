#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class OutputsFrame;
}

namespace zlt {

/// Digital outputs, position latch and synchronisation output.
class OutputsFrame : public QWidget {
    Q_OBJECT

 public:
    explicit OutputsFrame(QWidget* parent = nullptr);
    ~OutputsFrame() override;

    void showOutput(bool on);
    void resetSync();
    void showLive(bool live);

    const Ui::OutputsFrame& controls() const { return *m_ui; }

 private:
    std::unique_ptr<Ui::OutputsFrame> m_ui;
};

}  // namespace zlt
