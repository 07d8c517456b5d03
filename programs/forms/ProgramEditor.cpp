#include "programs/forms/ProgramEditor.h"

#include <QFontDatabase>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "programs/forms/ProgramDraft.h"
#include "widgets/WireText.h"

namespace zlt {

/// The strip of line numbers on the editor's left edge.
class LineNumbers : public QWidget {
 public:
    explicit LineNumbers(ProgramEditor& editor) : QWidget(&editor), m_editor(editor) {}

 protected:
    void paintEvent(QPaintEvent* event) override { m_editor.paintNumbers(event); }

 private:
    ProgramEditor& m_editor;
};

namespace {

constexpr int numbersMargin = 6;

}  // namespace

ProgramEditor::ProgramEditor(QWidget* parent)
    : QPlainTextEdit(parent), m_numbers(new LineNumbers(*this)) {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);  // the keyboard must find the way out again
    connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { placeNumbers(); });
    connect(this, &QPlainTextEdit::updateRequest, m_numbers, [this] { m_numbers->update(); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { markCurrentLine(); });
    placeNumbers();
    markCurrentLine();
}

std::string ProgramEditor::program() const {
    // The document's own text: the plain one turns a no-break space into a blank.
    QString raw = document()->toRawText();
    raw.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n"));
    raw.replace(QChar::LineSeparator, QStringLiteral("\r\n"));
    return wireLines(raw);
}

void ProgramEditor::showDraft(ProgramDraft& draft) {
    draft.document().setDefaultFont(font());
    setDocument(&draft.document());
    placeNumbers();
}

void ProgramEditor::setProgram(std::string_view text) {
    replaceText(*document(), shownText(text));
    moveCursor(QTextCursor::Start);
}

void ProgramEditor::SelectEditorLine(int line) {
    const QTextBlock block = document()->findBlockByNumber(line - 1);
    if (line < 1 || !block.isValid())
        return;
    setFocus(Qt::OtherFocusReason);
    QTextCursor selection(document());
    selection.setPosition(line == 1 ? 0 : block.position() - 1);
    selection.setPosition(block.position() + block.length() - 1, QTextCursor::KeepAnchor);
    setTextCursor(selection);
    centerCursor();
    horizontalScrollBar()->setValue(0);  // the cursor is at the line's end
}

void ProgramEditor::selectForeignCharacter() {
    const QString raw = document()->toRawText();
    const auto foreign = std::find_if(raw.begin(), raw.end(), [](QChar c) {
        return c.unicode() > 0xFF && c != QChar::ParagraphSeparator && c != QChar::LineSeparator;
    });
    if (foreign == raw.end())
        return;
    setFocus(Qt::OtherFocusReason);
    QTextCursor selection(document());
    selection.setPosition(static_cast<int>(foreign - raw.begin()));
    selection.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    setTextCursor(selection);
    centerCursor();
}

void ProgramEditor::keyPressEvent(QKeyEvent* event) {
    // A soft break looks like a line's end and is none; here every break ends a line.
    if (event->matches(QKeySequence::InsertLineSeparator))
        textCursor().insertBlock();
    else
        QPlainTextEdit::keyPressEvent(event);
}

QMimeData* ProgramEditor::createMimeDataFromSelection() const {
    return copiedText(textCursor());
}

void ProgramEditor::insertFromMimeData(const QMimeData* source) {
    // A soft break would be a line in the file and none on the screen.
    QString text = source->text();
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    textCursor().insertText(text);
    ensureCursorVisible();
}

int ProgramEditor::numbersWidth() const {
    const auto digits = std::max<qsizetype>(3, QString::number(blockCount()).size());
    return static_cast<int>(digits) * fontMetrics().horizontalAdvance(QLatin1Char('9')) +
           2 * numbersMargin;
}

void ProgramEditor::placeNumbers() {
    const QRect inside = contentsRect();
    setViewportMargins(numbersWidth(), 0, 0, 0);
    m_numbers->setGeometry(inside.left(), inside.top(), numbersWidth(), inside.height());
}

void ProgramEditor::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    placeNumbers();
}

void ProgramEditor::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        markCurrentLine();
}

void ProgramEditor::markCurrentLine() {
    QTextEdit::ExtraSelection mark;
    QColor tint = palette().color(QPalette::Highlight);
    tint.setAlpha(28);
    mark.format.setBackground(tint);
    mark.format.setProperty(QTextFormat::FullWidthSelection, true);
    mark.cursor = textCursor();
    mark.cursor.clearSelection();
    setExtraSelections({mark});
    m_numbers->update();
}

void ProgramEditor::paintNumbers(QPaintEvent* event) {
    QPainter painter(m_numbers);
    painter.setFont(font());
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    const int current = textCursor().blockNumber();
    QTextBlock block = firstVisibleBlock();
    qreal top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && top <= event->rect().bottom(); block = block.next()) {
        const qreal height = blockBoundingRect(block).height();
        const auto role =
            block.blockNumber() == current ? QPalette::Text : QPalette::PlaceholderText;
        painter.setPen(palette().color(role));
        painter.drawText(QRectF(0, top, m_numbers->width() - numbersMargin, height),
                         Qt::AlignRight | Qt::AlignTop, QString::number(block.blockNumber() + 1));
        top += height;
    }
}

}  // namespace zlt
