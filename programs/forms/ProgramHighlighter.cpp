#include "programs/forms/ProgramHighlighter.h"

#include "programs/ProgramLanguage.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr int middleGrey = 128;

/// A colour for a light ground and one for a dark ground.
struct Ink {
    QRgb onLight;
    QRgb onDark;
};
constexpr Ink commentInk{0xFF2E6B34, 0xFF8FCE96};
constexpr Ink numberInk{0xFF8A4B00, 0xFFE6B877};
constexpr Ink flowInk{0xFF6A1B9A, 0xFFD9ABF6};
constexpr Ink moveInk{0xFF0B57A4, 0xFF86BDFF};

QTextCharFormat formatOf(const Ink& ink, bool dark) {
    QTextCharFormat format;
    format.setForeground(QColor::fromRgb(dark ? ink.onDark : ink.onLight));
    return format;
}

}  // namespace

ProgramHighlighter::ProgramHighlighter(QTextDocument& document) : QSyntaxHighlighter(&document) {
    setColours(false);
}

void ProgramHighlighter::follow(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Base).lightness() < middleGrey;
    if (dark == m_dark)
        return;
    setColours(dark);
    rehighlight();
}

void ProgramHighlighter::setColours(bool dark) {
    m_dark = dark;
    m_comment = formatOf(commentInk, dark);
    m_comment.setFontItalic(true);
    m_number = formatOf(numberInk, dark);
    m_flow = formatOf(flowInk, dark);
    m_flow.setFontWeight(QFont::Bold);
    m_move = formatOf(moveInk, dark);
    m_move.setFontWeight(QFont::Bold);
}

void ProgramHighlighter::highlightBlock(const QString& text) {
    const auto formatFor = [this](TokenKind kind) -> const QTextCharFormat& {
        switch (kind) {
            case TokenKind::number:
                return m_number;
            case TokenKind::flow:
                return m_flow;
            case TokenKind::move:
                return m_move;
            case TokenKind::comment:
                break;
        }
        return m_comment;
    };
    for (const Token& token : tokensOfLine(textView(text)))
        setFormat(static_cast<int>(token.begin), static_cast<int>(token.length),
                  formatFor(token.kind));
}

}  // namespace zlt
