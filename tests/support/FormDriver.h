#pragma once

#include <QAbstractButton>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <stdexcept>
#include <string>

namespace zlt::test {

/// The control of this name on a form. Fails the test with a list of those that exist.
QObject* findNamed(QWidget& form, const char* name);

template <class Control>
Control& control(QWidget& form, const char* name) {
    auto* found = qobject_cast<Control*>(findNamed(form, name));
    if (!found)
        throw std::runtime_error(std::string(name) + " is not of the kind asked for");
    return *found;
}

/// Clicks as the operator would, and refuses what the operator could not: a control that is
/// hidden or disabled.
void click(QWidget& form, const char* name);
void press(QWidget& form, const char* name, Qt::Key key);

/// One notch of the mouse wheel over a control.
void turnWheel(QWidget& widget);

/// What a control shows: a label's, a button's or a field's text, a box's chosen text.
std::string textOf(QWidget& form, const char* name);

/// The same, or "on" and "off" of a lamp, a mark or a timer.
std::string shownOn(QWidget& form, const char* name);

/// Picks an entry of a drop-down list as the operator would.
void choose(QWidget& form, const char* name, const char* entry);

/// Clicks a button that shows a screen over `form`, and works that screen once it stands.
void clickAndWork(QWidget& form, const char* button,
                  const std::function<void(QWidget& screen)>& work);

/// One tick of a form's timer, now.
void tick(QWidget& form, const char* name);

/// The colour in the middle of a control's left edge, where no text stands.
QColor backgroundOf(QWidget& form, const char* name);

}  // namespace zlt::test
