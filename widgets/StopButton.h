#pragma once

#include <QGroupBox>
#include <QPushButton>
#include <string_view>

namespace zlt {

/// Stops the axis: red, and pressed at once. What it does is connected by Screen::connectStop().
class StopButton : public QPushButton {
    Q_OBJECT

 public:
    explicit StopButton(QWidget* parent = nullptr);
};

/// The corner of a screen in which its stop stands, titled with the one device that it stops.
class StopBox : public QGroupBox {
    Q_OBJECT

 public:
    explicit StopBox(QWidget* parent = nullptr);

    StopButton& stop() { return *m_stop; }
    /// Says which device the stop is for (Latin-1, as the operator chose it).
    void showDevice(std::string_view deviceId);

 private:
    StopButton* m_stop;  ///< `ISTOP`
};

/// The title of a frame with stops: "Device 05".
QString stopTitle(std::string_view deviceId);

}  // namespace zlt
