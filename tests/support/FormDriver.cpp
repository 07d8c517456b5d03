#include "support/FormDriver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QWheelEvent>

namespace zlt::test {
namespace {

QWidget& usable(QWidget& form, const char* name) {
    auto& widget = control<QWidget>(form, name);
    if (!widget.isVisible() || !widget.isEnabled())
        throw std::runtime_error(std::string(name) + " is hidden or disabled");
    return widget;
}

}  // namespace

QObject* findNamed(QWidget& form, const char* name) {
    if (auto* found = form.findChild<QObject*>(QString::fromLatin1(name)))
        return found;
    std::string existing;
    for (const QObject* child : form.findChildren<QObject*>())
        if (!child->objectName().isEmpty())
            existing += " " + child->objectName().toStdString();
    throw std::runtime_error("no control " + std::string(name) + "; there are:" + existing);
}

void click(QWidget& form, const char* name) {
    QWidget& widget = usable(form, name);
    // A check box or radio button is hit on its mark, not in the empty space after its text.
    const bool marked = widget.inherits("QCheckBox") || widget.inherits("QRadioButton");
    QTest::mouseClick(&widget, Qt::LeftButton, {},
                      marked ? QPoint(8, widget.height() / 2) : widget.rect().center());
}

void press(QWidget& form, const char* name, Qt::Key key) {
    QWidget& widget = usable(form, name);
    widget.setFocus();
    QTest::keyClick(&widget, key);
}

void turnWheel(QWidget& widget) {
    QWheelEvent event(QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

std::string textOf(QWidget& form, const char* name) {
    QObject* found = findNamed(form, name);
    const char* property = found->inherits("QComboBox") ? "currentText" : "text";
    return found->property(property).toString().toStdString();
}

std::string shownOn(QWidget& form, const char* name) {
    for (const char* state : {"lit", "checked", "active"})
        if (const QVariant on = findNamed(form, name)->property(state); on.isValid())
            return on.toBool() ? "on" : "off";
    return textOf(form, name);
}

void choose(QWidget& form, const char* name, const char* entry) {
    auto& box = dynamic_cast<QComboBox&>(usable(form, name));
    const int index = box.findText(QString::fromLatin1(entry));
    if (index < 0)
        throw std::runtime_error(std::string(name) + " does not offer " + entry);
    box.setCurrentIndex(index);
    emit box.activated(index);
}

void clickAndWork(QWidget& form, const char* button,
                  const std::function<void(QWidget& screen)>& work) {
    QTimer::singleShot(0, &form, [&form, button, work] {
        QWidget* screen = QApplication::activeModalWidget();
        if (!screen || screen == &form) {
            ADD_FAILURE() << button << " shows no screen";
            return;
        }
        try {
            work(*screen);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
            screen->close();
        }
    });
    click(form, button);
}

void tick(QWidget& form, const char* name) {
    auto& timer = control<QTimer>(form, name);
    if (!timer.isActive())
        throw std::runtime_error(std::string(name) + " does not run");
    QMetaObject::invokeMethod(&timer, "timeout");
}

QColor backgroundOf(QWidget& form, const char* name) {
    auto& widget = control<QWidget>(form, name);
    return widget.grab().toImage().pixelColor(2, widget.height() / 2);
}

}  // namespace zlt::test
