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
constexpr int arrowWidth = 10;  ///< of the sign beside the line that the controller is at
constexpr int cursorLineTint = 28;
constexpr int runningLineTint = 70;
constexpr QRgb runningInk = 0xFF1E88E5;  ///< to be seen on light and on dark

/// An arrowhead that points at the line.
QPolygonF arrowAt(const QRectF& line) {
    const qreal half = std::min<qreal>(arrowWidth, line.height()) / 2 - 1;
    const QPointF middle(arrowWidth / 2.0, line.center().y());
    return {
        {middle + QPointF(-half, -half), middle + QPointF(half, 0), middle + QPointF(-half, half)}};
}

}  // namespace

ProgramEditor::ProgramEditor(QWidget* parent)
    : QPlainTextEdit(parent), m_numbers(new LineNumbers(*this)) {
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);  // the keyboard must find the way out again
    connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { placeNumbers(); });
    connect(this, &QPlainTextEdit::updateRequest, m_numbers, [this] { m_numbers->update(); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] { markLines(); });
    placeNumbers();
    markLines();
}

std::string ProgramEditor::program() const {
    return wireLines(wholeTextWithLineEnds(*document()));
}

bool ProgramEditor::shows(std::string_view text) const {
    // The length tells most texts apart without another look.
    const auto lineEnds = std::count(text.begin(), text.end(), '\n');
    const auto length = static_cast<qsizetype>(text.size()) - lineEnds;
    return length == document()->characterCount() - 1 &&
           wholeTextWithLineEnds(*document()) == shownText(text);
}

void ProgramEditor::showDraft(ProgramDraft& draft) {
    m_draft = &draft;
    setDocument(&draft.document());
    takeFont();
    draft.highlighter().follow(palette());
    markLines();
}

void ProgramEditor::takeFont() {
    document()->setDefaultFont(font());
    placeNumbers();
}

void ProgramEditor::showRunningLine(std::optional<int> line) {
    if (m_runningLine == line)
        return;
    m_runningLine = line;
    markLines();
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
           arrowWidth + 2 * numbersMargin;
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
    if (event->type() == QEvent::PaletteChange) {
        if (m_draft)
            m_draft->highlighter().follow(palette());
        markLines();
    }
}

void ProgramEditor::markLines() {
    const auto markOf = [](const QTextCursor& place, QColor tint, int alpha) {
        QTextEdit::ExtraSelection mark;
        tint.setAlpha(alpha);
        mark.format.setBackground(tint);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        mark.cursor = place;
        mark.cursor.clearSelection();
        return mark;
    };
    QList<QTextEdit::ExtraSelection> marks{
        markOf(textCursor(), palette().color(QPalette::Highlight), cursorLineTint)};
    const QTextBlock running = document()->findBlockByNumber(m_runningLine.value_or(0) - 1);
    if (m_runningLine && running.isValid())
        marks.append(markOf(QTextCursor(running), runningInk, runningLineTint));
    setExtraSelections(marks);
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
        const QRectF line(0, top, m_numbers->width() - numbersMargin, height);
        painter.drawText(line, Qt::AlignRight | Qt::AlignTop,
                         QString::number(block.blockNumber() + 1));
        if (m_runningLine == block.blockNumber() + 1) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(QColor(runningInk));
            painter.drawPolygon(arrowAt(line));
        }
        top += height;
    }
}

}  // namespace zlt
