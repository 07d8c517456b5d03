#include "terminal/CommandLine.h"

#include <QKeyEvent>
#include <stdexcept>

#include "widgets/WireText.h"

namespace zlt {

std::string CommandLine::command() const {
    std::string wire = wireText(text());
    if (wire.find_first_of("\r\n") != std::string::npos)
        throw std::invalid_argument(
            "A command is one line, and this holds several.  "
            "Nothing was sent.");
    return wire;
}

void CommandLine::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!event->isAutoRepeat())
                emit entered();
            return;
        case Qt::Key_F1:
            emit recalled();
            return;
        case Qt::Key_Up:
            emit older();
            return;
        case Qt::Key_Down:
            emit newer();
            return;
        default:
            QLineEdit::keyPressEvent(event);
    }
}

}  // namespace zlt
