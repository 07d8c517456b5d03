#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace zlt {

/// Colours a program's numbers, comments, words that control its flow and commands that move. The
/// words are told apart by weight too, the comments by slant.
class ProgramHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

 public:
    explicit ProgramHighlighter(QTextDocument& document);

    /// Takes the colours that can be read on the ground of this palette.
    void follow(const QPalette& palette);

 protected:
    void highlightBlock(const QString& text) override;

 private:
    void setColours(bool dark);

    bool m_dark = false;
    QTextCharFormat m_comment, m_number, m_flow, m_move;
};

}  // namespace zlt
