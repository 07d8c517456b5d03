#include "parameters/forms/ParameterControl.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>

#include "platform/Text.h"
#include "widgets/ChoiceBox.h"
#include "widgets/FieldHints.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

/// A controller's word for the operator; "1" says little beside a mark.
QString shownWord(const std::string& word, bool isMark) {
    if (isMark)
        return word == "1" ? QObject::tr("set") : QObject::tr("clear");
    return fromUtf8(inQuotes(utf8FromLatin1(word)));
}

}  // namespace

ParameterControl::ParameterControl(QWidget& screen, ParameterField field) {
    const FieldRow& row = fieldRow(field);
    const QString name = QLatin1String(row.control);
    m_box = screen.findChild<EditableChoiceBox*>(name);
    m_field = screen.findChild<QLineEdit*>(name);
    m_button =
        screen.findChild<QAbstractButton*>(row.setButton ? QLatin1String(row.setButton) : name);
    m_clearButton = row.setButton ? screen.findChild<QAbstractButton*>(name) : nullptr;
    m_mark = screen.findChild<ChangeMark*>(name + QLatin1String("Mark"));
    Q_ASSERT(m_mark && (m_box || m_field || m_button));
    if (m_clearButton) {
        auto* pair = new QButtonGroup(&screen);
        pair->addButton(m_clearButton);
        pair->addButton(m_button);
        m_clearButton->setChecked(true);  // in one group till now, each mark put out the last
    }
}

void ParameterControl::onChange(const std::function<void()>& changed) {
    if (m_box)
        QObject::connect(m_box, &QComboBox::currentTextChanged, m_mark, changed);
    else if (m_field)
        QObject::connect(m_field, &QLineEdit::textChanged, m_mark, changed);
    else
        QObject::connect(m_button, &QAbstractButton::toggled, m_mark, changed);
}

QString ParameterControl::text() const {
    if (m_box)
        return m_box->currentText();
    if (m_field)
        return m_field->text();
    return m_button->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
}

void ParameterControl::show(const std::string& text) {
    if (m_box) {
        m_box->showText(text);
        m_box->lineEdit()->setCursorPosition(0);  // the front of a long value
    } else if (m_field) {
        m_field->setText(shownText(text));
        m_field->setCursorPosition(0);
    } else if (m_clearButton && text != "1") {
        m_clearButton->setChecked(true);
    } else {
        m_button->setChecked(text == "1");
    }
}

void ParameterControl::disable(const QString& reason) {
    widget().setEnabled(false);
    addToToolTip(widget(), reason);
    for (QLabel* label : widget().window()->findChildren<QLabel*>())
        if (label->buddy() == &widget())
            label->setEnabled(false);
}

ChangeMark::State ParameterControl::compare(const std::optional<std::string>& word) {
    auto state = ChangeMark::State::same;
    QString reason;
    if (!word) {
        state = ChangeMark::State::unread;
        reason = QObject::tr("Not read from the controller.");
    } else if (text() != shownText(*word)) {
        state = ChangeMark::State::differs;
        reason = QObject::tr("Not written yet: the controller says %1.")
                     .arg(shownWord(*word, m_button != nullptr));
    }
    // Marked as rich text, or a reply such as "<b>" would be taken for it.
    m_mark->showState(state, reason.isEmpty()
                                 ? reason
                                 : QStringLiteral("<qt>%1</qt>").arg(reason.toHtmlEscaped()));
    widget().setAccessibleDescription(reason);
    return state;
}

QWidget& ParameterControl::widget() const {
    if (m_box)
        return *m_box;
    if (m_field)
        return *m_field;
    return *m_button;
}

}  // namespace zlt
