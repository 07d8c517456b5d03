#include "parameters/forms/ParameterControl.h"

#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <stdexcept>

#include "platform/Text.h"
#include "ui_SetupParameters.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

/// Qt would cut a text at some length without a word; what is too long is refused in words.
constexpr int anyLength = 1 << 24;

}  // namespace
QString ParameterControl::inWords(const std::string& word) const {
    return fromUtf8(inQuotes(utf8FromLatin1(word)));
}

void ParameterControl::point() {
    m_widget.setFocus(Qt::OtherFocusReason);
}

void ParameterControl::disable(const QString& reason) {
    m_widget.setEnabled(false);
    addToToolTip(m_widget, reason);
    for (QLabel* label : m_widget.window()->findChildren<QLabel*>())
        if (label->buddy() == &m_widget)
            label->setEnabled(false);
}

void ParameterControl::mark(Standing standing, const QString& reason) {
    // Marked as rich text, or a reply such as "<b>" would be taken for it.
    m_mark.showStanding(standing, reason.isEmpty()
                                      ? reason
                                      : QStringLiteral("<qt>%1</qt>").arg(reason.toHtmlEscaped()));
    m_widget.setAccessibleDescription(reason);
}

TextControl::TextControl(QLineEdit& field, ChangeMark& mark)
    : ParameterControl(field, mark), m_field(field) {
    field.setMaxLength(anyLength);
}

void TextControl::onChange(const std::function<void()>& changed) {
    QObject::connect(&m_field, &QLineEdit::textChanged, &m_mark, changed);
}

QString TextControl::text() const {
    return m_field.text();
}

void TextControl::show(const std::string& text) {
    m_field.setText(shownText(text));
    m_field.setCursorPosition(0);  // the front of a long value
}

void TextControl::point() {
    pointToField(m_field);
}

ChoiceControl::ChoiceControl(EditableChoiceBox& box, ChangeMark& mark)
    : ParameterControl(box, mark), m_box(box) {
    box.lineEdit()->setMaxLength(anyLength);
}

void ChoiceControl::onChange(const std::function<void()>& changed) {
    QObject::connect(&m_box, &QComboBox::currentTextChanged, &m_mark, changed);
}

QString ChoiceControl::text() const {
    return m_box.currentText();
}

void ChoiceControl::show(const std::string& text) {
    m_box.showText(text);
    m_box.lineEdit()->setCursorPosition(0);
}

void ChoiceControl::point() {
    pointToField(*m_box.lineEdit());
}

CheckControl::CheckControl(QAbstractButton& button, ChangeMark& mark)
    : ParameterControl(button, mark), m_button(button) {}

void CheckControl::onChange(const std::function<void()>& changed) {
    QObject::connect(&m_button, &QAbstractButton::toggled, &m_mark, changed);
}

QString CheckControl::text() const {
    return m_button.isChecked() ? QStringLiteral("1") : QStringLiteral("0");
}

void CheckControl::show(const std::string& text) {
    m_button.setChecked(text == "1");
}

QString CheckControl::inWords(const std::string& word) const {
    return word == "1" ? QObject::tr("set") : QObject::tr("clear");
}

PairControl::PairControl(QRadioButton& clear, QRadioButton& set, ChangeMark& mark)
    : CheckControl(set, mark), m_clear(clear) {
    auto* pair = new QButtonGroup(&set);
    pair->addButton(&clear);
    pair->addButton(&set);
    clear.setChecked(true);  // in one group till now, each mark put out the last
}

void PairControl::show(const std::string& text) {
    if (text == "1")
        m_button.setChecked(true);
    else
        m_clear.setChecked(true);
}

std::unique_ptr<ParameterControl> makeControl(ParameterField field, Ui::SetupParameters& ui) {
    using F = ParameterField;
    using Control = std::unique_ptr<ParameterControl>;
    const auto text = [](QLineEdit* box, ChangeMark* mark) -> Control {
        return std::make_unique<TextControl>(*box, *mark);
    };
    const auto choice = [](EditableChoiceBox* box, ChangeMark* mark) -> Control {
        return std::make_unique<ChoiceControl>(*box, *mark);
    };
    const auto check = [](QAbstractButton* button, ChangeMark* mark) -> Control {
        return std::make_unique<CheckControl>(*button, *mark);
    };
    const auto pair = [](QRadioButton* clear, QRadioButton* set, ChangeMark* mark) -> Control {
        return std::make_unique<PairControl>(*clear, *set, *mark);
    };
    // Without a default: a field that is missing here is a warning of the compiler.
    switch (field) {
        case F::deviceId:
            return choice(ui.DeviceIDCombo, ui.DeviceIDComboMark);
        case F::baudRate:
            return choice(ui.baudCombo, ui.baudComboMark);
        case F::nameInReplies:
            return check(ui.RT, ui.RTMark);
        case F::runCurrent:
            return choice(ui.RunCurrentSelect, ui.RunCurrentSelectMark);
        case F::idleCurrent:
            return choice(ui.IdleCurrentSelect, ui.IdleCurrentSelectMark);
        case F::microstep:
            return choice(ui.Microstep, ui.MicrostepMark);
        case F::directionPolarity:
            return pair(ui.DirPol1, ui.DirPol2, ui.DirPol1Mark);
        case F::limitPolarity:
            return pair(ui.LimPol1, ui.LimPol2, ui.LimPol1Mark);
        case F::homePolarity:
            return pair(ui.HomePol1, ui.HomePol2, ui.HomePol1Mark);
        case F::outputPolarity:
            return pair(ui.dopol1, ui.dopol2, ui.dopol1Mark);
        case F::programErrorPolarity:
            return pair(ui.sapol1, ui.sapol2, ui.sapol1Mark);
        case F::limitDisable:
            return check(ui.DisableLimit, ui.DisableLimitMark);
        case F::autoRun0:
            return check(ui.Autostart, ui.AutostartMark);
        case F::autoRun1:
            return check(ui.Autostart1, ui.Autostart1Mark);
        case F::outputsAtBoot:
            return text(ui.DOBOOT, ui.DOBOOTMark);
        case F::lca:
            return text(ui.LCA, ui.LCAMark);
        case F::hca:
            return text(ui.HCA, ui.HCAMark);
    }
    throw std::logic_error("no such field");
}

}  // namespace zlt
