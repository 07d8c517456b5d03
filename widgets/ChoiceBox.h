#pragma once

#include <QComboBox>
#include <string_view>

namespace zlt {

/// A drop-down box that shows whatever text it is given, listed or not, and reports only what
/// the operator picks from its open list (activated): neither the wheel nor an arrow key
/// chooses by itself.
class ChoiceBox : public QComboBox {
    Q_OBJECT

 public:
    explicit ChoiceBox(QWidget* parent = nullptr);

    /// Shows `text` (Latin-1) without a choice having been made.
    void showText(std::string_view text);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// A drop-down box that can also be typed into; what was typed stays as it is.
class EditableChoiceBox : public QComboBox {
    Q_OBJECT

 public:
    explicit EditableChoiceBox(QWidget* parent = nullptr);

    /// Shows `text` (Latin-1), listed or not.
    void showText(std::string_view text);
};

/// Fills a box with the baud rates.
void addBaudRates(QComboBox& box);

/// Fills a box with "01" to "99".
void addDeviceIds(QComboBox& box);

}  // namespace zlt
