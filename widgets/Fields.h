#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QString>
#include <QWidget>
#include <memory>
#include <string_view>

#include "link/Values.h"

namespace zlt {

/// The controls of a form or frame as its .ui has them, made and placed: for members that need
/// them.
template <class Controls, class Form>
std::unique_ptr<Controls> controlsOf(Form& form) {
    auto controls = std::make_unique<Controls>();
    controls->setupUi(&form);
    return controls;
}

/// A field that is wide enough for any number of the controller's, -2147483648 included.
class NumberField : public QLineEdit {
    Q_OBJECT

 public:
    explicit NumberField(QWidget* parent = nullptr) : QLineEdit(parent) {}

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    /// The size that holds `text` in a font of these metrics, frame and all.
    [[nodiscard]] QSize sizeFor(const QString& text, const QFontMetrics& metrics) const;

    /// The longest number there is.
    static QString longestNumber() { return QStringLiteral("-2147483648"); }
};

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

/// A check box that the poll sets and the operator clicks. The poll keeps off it from the
/// press to the release, wherever the pointer strays meanwhile: a click means the opposite of
/// what stood there when it began.
class PolledCheckBox : public QCheckBox {
    Q_OBJECT

 public:
    explicit PolledCheckBox(QWidget* parent = nullptr) : QCheckBox(parent) {}

    /// Shows what the controller says, unless the operator is just clicking.
    void showState(bool checked);

    /// Dims mark and words while the controller does not answer; it can be clicked all the same.
    void setLive(bool live);

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    bool m_pressed = false;
    bool m_live = true;
};

/// Puts the cursor into a field and selects what stands there, to be typed over.
inline void pointToField(QLineEdit& field) {
    field.setFocus(Qt::OtherFocusReason);
    field.selectAll();
}

/// What a control lacks that the controller's firmware does not serve.
inline QString needsFirmware(FirmwareVersion needed, FirmwareVersion present) {
    return QCoreApplication::translate("Firmware",
                                       "Needs firmware V%1 or later; the controller has V%2.")
        .arg(needed.number)
        .arg(present.number);
}

/// Says something more in a control's tooltip, which goes on saying what the control does.
inline void addToToolTip(QWidget& control, const QString& sentence) {
    if (!control.toolTip().contains(sentence))
        control.setToolTip(control.toolTip() + QLatin1Char('\n') + sentence);
}

}  // namespace zlt
