#include "programs/forms/CodeEditor.h"

#include <QFontInfo>
#include <QKeyEvent>
#include <QTextBlock>
#include <QWheelEvent>
#include <algorithm>

#include "programs/LineEdits.h"
#include "programs/forms/ProgramDraft.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr int usualTab = 4;
constexpr int leastPoints = 6;
constexpr int mostPoints = 48;

/// The front of the cursor's line, up to the cursor or the selection's begin.
QString beforeCursor(const QTextCursor& cursor) {
    const QTextBlock block = cursor.document()->findBlock(cursor.selectionStart());
    return block.text().left(cursor.selectionStart() - block.position());
}

}  // namespace

CodeEditor::CodeEditor(QWidget* parent) : ProgramEditor(parent), m_ownFont(font()) {}

void CodeEditor::follow(EditorSettings& settings) {
    m_settings = &settings;
    setTabChangesFocus(settings.tabBlanks == 0);
    const int own = QFontInfo(m_ownFont).pointSize();
    settings.zoom = std::clamp(own + settings.zoom, leastPoints, mostPoints) - own;
    QFont zoomed = m_ownFont;
    zoomed.setPointSize(own + settings.zoom);
    setFont(zoomed);
    const int stop = settings.tabBlanks == 0 ? usualTab : settings.tabBlanks;
    setTabStopDistance(stop * fontMetrics().horizontalAdvance(QLatin1Char(' ')));
    takeFont();
}

void CodeEditor::zoom(int points) {
    m_settings->zoom = points == 0 ? 0 : m_settings->zoom + points;
    follow(*m_settings);
    ensureCursorVisible();
}

bool CodeEditor::goToLine(int line) {
    const QTextBlock block = document()->findBlockByNumber(line - 1);
    if (line < 1 || !block.isValid())
        return false;
    setTextCursor(QTextCursor(block));
    centerCursor();
    setFocus(Qt::OtherFocusReason);
    return true;
}

/// Has `edit` make other lines of those that the selection touches, in one step that undo takes
/// back. Afterwards they are selected, where more than one was.
template <class Edit>
void CodeEditor::editLines(const Edit& edit) {
    QTextCursor cursor = textCursor();
    const QTextBlock first = document()->findBlock(cursor.selectionStart());
    QTextBlock last = document()->findBlock(cursor.selectionEnd());
    // A selection that ends before a line's first character does not touch that line.
    if (last != first && cursor.selectionEnd() == last.position())
        last = last.previous();
    TextLines before;
    for (QTextBlock block = first; block.isValid() && block.blockNumber() <= last.blockNumber();
         block = block.next())
        before.push_back(block.text().toStdU16String());
    const TextLines after = edit(before);
    const int firstLine = first.blockNumber();
    cursor.beginEditBlock();
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (after[i] == before[i])
            continue;
        const QTextBlock block = document()->findBlockByNumber(firstLine + static_cast<int>(i));
        QTextCursor line(block);
        line.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        line.insertText(fromUtf16(after[i]));
    }
    cursor.endEditBlock();
    if (before.size() < 2)
        return;
    const QTextBlock end =
        document()->findBlockByNumber(firstLine + static_cast<int>(after.size()) - 1);
    QTextCursor selection(document()->findBlockByNumber(firstLine));
    selection.setPosition(end.position() + end.length() - 1, QTextCursor::KeepAnchor);
    setTextCursor(selection);
}

void CodeEditor::toggleComment() {
    editLines([](const TextLines& lines) { return zlt::toggleComment(lines); });
}

/// False where Tab is to leave the box.
bool CodeEditor::moveByTab(bool back) {
    if (!m_settings || m_settings->tabBlanks == 0)
        return false;
    const auto width = static_cast<std::size_t>(m_settings->tabBlanks);
    QTextCursor cursor = textCursor();
    const bool overLines = cursor.selectedText().contains(QChar::ParagraphSeparator);
    if (back)
        editLines([width](const TextLines& lines) { return outdent(lines, width); });
    else if (overLines)
        editLines([width](const TextLines& lines) { return indent(lines, width); });
    else
        cursor.insertText(
            QString(static_cast<qsizetype>(blanksToStop(textView(beforeCursor(cursor)), width)),
                    QLatin1Char(' ')));
    ensureCursorVisible();
    return true;
}

void CodeEditor::breakLine() {
    QTextCursor cursor = textCursor();
    const QString before = beforeCursor(cursor);
    cursor.beginEditBlock();
    cursor.insertBlock();
    cursor.insertText(fromUtf16(marginOf(textView(before))));
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void CodeEditor::keyPressEvent(QKeyEvent* event) {
    const bool back = event->key() == Qt::Key_Backtab ||
                      (event->key() == Qt::Key_Tab && event->modifiers() & Qt::ShiftModifier);
    const bool tab = back || event->key() == Qt::Key_Tab;
    if (tab && event->modifiers() & Qt::ControlModifier)
        // Past the base class, whose own keeps the focus while the text may be edited.
        QWidget::focusNextPrevChild(!back);  // NOLINT(bugprone-parent-virtual-call)
    else if (event->matches(QKeySequence::InsertParagraphSeparator))
        breakLine();
    else if (!tab || !moveByTab(back))
        ProgramEditor::keyPressEvent(event);
}

void CodeEditor::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier) || !m_settings) {
        ProgramEditor::wheelEvent(event);
        return;
    }
    const int turned = event->angleDelta().y();
    if (turned != 0)
        zoom(turned > 0 ? 1 : -1);
    event->accept();
}

}  // namespace zlt
