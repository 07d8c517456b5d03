#include "terminal/forms/CommandLine.h"

#include <QKeyEvent>

#include "widgets/WireText.h"

namespace zlt {

std::string CommandLine::command() const {
    return commandText(text());
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
