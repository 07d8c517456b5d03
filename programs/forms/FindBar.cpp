#include "programs/forms/FindBar.h"

#include <QKeyEvent>
#include <QTextBlock>
#include <algorithm>

#include "programs/forms/ProgramDraft.h"
#include "programs/forms/ProgramEditor.h"
#include "ui_FindBar.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {

FindBar::FindBar(Handlers& handlers, ProgramEditor& box, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::FindBar>()), m_box(box) {
    setObjectName(QStringLiteral("findBar"));
    m_ui->setupUi(this);
    setFocusProxy(m_ui->FindText);
    QWidget* before = &box;
    for (QWidget* control : std::initializer_list<QWidget*>{
             m_ui->FindText, m_ui->FindPrevious, m_ui->FindNext, m_ui->matchCase, m_ui->wholeWords,
             m_ui->ReplaceText, m_ui->Replace, m_ui->ReplaceAll}) {
        setTabOrder(before, control);
        before = control;
    }
    hide();
    handlers.onClick(*m_ui->FindNext, [this](bool) { findNext(); });
    handlers.onClick(*m_ui->FindPrevious, [this](bool) { findPrevious(); });
    handlers.onClick(*m_ui->Replace, [this](bool) { replace(); });
    handlers.onClick(*m_ui->ReplaceAll, [this](bool) { replaceAll(); });
}

FindBar::~FindBar() = default;

void FindBar::makeShort() {
    for (QWidget* part :
         std::initializer_list<QWidget*>{m_ui->matchCase, m_ui->wholeWords, m_ui->ReplaceLabel,
                                         m_ui->ReplaceText, m_ui->Replace, m_ui->ReplaceAll})
        part->hide();
}

void FindBar::open(bool toReplace) {
    const QString selected = m_box.textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator))
        m_ui->FindText->setText(selected);
    m_ui->foundNote->clear();
    show();
    const bool toReplaceText = toReplace && !m_ui->FindText->text().isEmpty();
    pointToField(toReplaceText ? *m_ui->ReplaceText : *m_ui->FindText);
}

void FindBar::shut() {
    hide();
    m_box.setFocus(Qt::OtherFocusReason);
}

SearchRule FindBar::rule() const {
    QString words = m_ui->FindText->text();
    words.replace(QLatin1Char('\n'), QChar::ParagraphSeparator);
    words.replace(QChar::LineSeparator, QChar::ParagraphSeparator);
    return {words.toStdU16String(), m_ui->matchCase->isChecked(), m_ui->wholeWords->isChecked()};
}

QString FindBar::replacement() const {
    QString text = m_ui->ReplaceText->text();
    return text.replace(QChar::LineSeparator, QLatin1Char('\n'));
}

void FindBar::find(bool forwards) {
    if (m_ui->FindText->text().isEmpty()) {
        open(false);
        return;
    }
    const QString text = wholeText(*m_box.document());
    const auto places = findAll(textView(text), rule());
    const QTextCursor cursor = m_box.textCursor();
    const auto from =
        static_cast<std::size_t>(forwards ? cursor.selectionEnd() : cursor.selectionStart());
    const auto found = forwards ? nextPlace(places, from) : placeBefore(places, from);
    if (found)
        select(places, *found, forwards ? places[*found] < from : places[*found] >= from);
    else
        m_ui->foundNote->setText(tr("not found"));
}

void FindBar::select(const std::vector<std::size_t>& places, std::size_t index, bool wrapped) {
    QTextCursor selection(m_box.document());
    const auto begin = static_cast<int>(places[index]);
    selection.setPosition(begin);
    selection.setPosition(begin + static_cast<int>(m_ui->FindText->text().size()),
                          QTextCursor::KeepAnchor);
    m_box.setTextCursor(selection);
    const QString which = tr("%1 of %2").arg(index + 1).arg(places.size());
    m_ui->foundNote->setText(wrapped ? tr("%1, round the end").arg(which) : which);
}

void FindBar::replace() {
    const QString text = wholeText(*m_box.document());
    const auto places = findAll(textView(text), rule());
    QTextCursor cursor = m_box.textCursor();
    const auto begin = static_cast<std::size_t>(cursor.selectionStart());
    const bool onePlace = std::binary_search(places.begin(), places.end(), begin) &&
                          cursor.selectedText().size() == m_ui->FindText->text().size();
    if (onePlace)
        cursor.insertText(replacement());
    findNext();
}

void FindBar::replaceAll() {
    const QString text = wholeText(*m_box.document());
    const SearchRule what = rule();
    const auto places = findAll(textView(text), what);
    const QString instead = replacement();
    QTextCursor cursor(m_box.document());
    cursor.beginEditBlock();
    // From the end, so that the places before stay where they are.
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
        cursor.setPosition(static_cast<int>(*place));
        cursor.setPosition(static_cast<int>(*place + what.words.size()), QTextCursor::KeepAnchor);
        cursor.insertText(instead);
    }
    cursor.endEditBlock();
    m_ui->foundNote->setText(tr("%1 replaced").arg(places.size()));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        shut();
    else if (enter && m_ui->FindText->hasFocus())
        find(!(event->modifiers() & Qt::ShiftModifier));
    else if (enter && m_ui->ReplaceText->hasFocus())
        replace();
    else
        QWidget::keyPressEvent(event);
}

}  // namespace zlt
