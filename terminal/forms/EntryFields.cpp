#include "terminal/forms/EntryFields.h"

#include <QKeyEvent>

#include "terminal/TerminalTalk.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {

CommandLine::CommandLine(QWidget* parent) : QLineEdit(parent) {
    // A line that was copied whole brings its end along, unseen.
    QObject::connect(this, &QLineEdit::textEdited, this, [this](const QString& edited) {
        if (const QString line = withoutLineEnd(edited); line != edited)
            setText(line);
    });
}

std::string CommandLine::command() const {
    return commandText(text());
}

void CommandLine::take() {
    clear();
    repaint();
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
        case Qt::Key_PageUp:
            emit paged(-1);
            return;
        case Qt::Key_PageDown:
            emit paged(1);
            return;
        default:
            QLineEdit::keyPressEvent(event);
    }
}

std::string AddressField::address() {
    try {
        return deviceAddress(text().toStdString());
    } catch (const BadAddress&) {
        pointToField(*this);
        throw;
    }
}

}  // namespace zlt
