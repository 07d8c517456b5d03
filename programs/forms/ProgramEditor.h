#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

namespace zlt {

class ProgramDraft;

/// A box to write programs in: fixed pitch, line numbers, the current line marked. Its text is
/// Latin-1 with CR LF between lines, however it came in.
class ProgramEditor : public QPlainTextEdit {
    Q_OBJECT

 public:
    explicit ProgramEditor(QWidget* parent = nullptr);

    /// Shows and edits this text, which outlives the box, from here on.
    void showDraft(ProgramDraft& draft);

    /// The whole text. Throws NotLatin1 naming the first character that no file can hold, and
    /// its line.
    [[nodiscard]] std::string program() const;
    /// Replaces the whole text in one step that undo takes back.
    void setProgram(std::string_view text);

    /// Selects line `line`, from 1, gives the box the focus and scrolls to its beginning. From
    /// line 2 on the break before the line belongs to the selection. Selects nothing for a line
    /// that the text does not have.
    void SelectEditorLine(int line);
    /// Selects the character that program() names, and gives the box the focus.
    void selectForeignCharacter();

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

 private:
    friend class LineNumbers;
    [[nodiscard]] int numbersWidth() const;
    void placeNumbers();
    void markCurrentLine();
    void paintNumbers(QPaintEvent* event);

    QWidget* m_numbers;
};

}  // namespace zlt
