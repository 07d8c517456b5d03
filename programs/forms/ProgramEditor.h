#pragma once

#include <QPlainTextEdit>
#include <optional>
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
    /// Has the text stand in this box's font, where another box over the same one had its own.
    void takeFont();

    /// The whole text. Throws NotLatin1 naming the first character that no file can hold, and
    /// its line.
    [[nodiscard]] std::string program() const;
    /// Whether exactly this text (Latin-1, CR LF between lines) stands here.
    [[nodiscard]] bool shows(std::string_view text) const;
    /// Replaces the whole text in one step that undo takes back.
    void setProgram(std::string_view text);

    /// Selects line `line`, from 1, gives the box the focus and scrolls to its beginning. From
    /// line 2 on the break before the line belongs to the selection. Selects nothing for a line
    /// that the text does not have.
    void SelectEditorLine(int line);
    /// Marks the line, from 1, that the controller is at; nothing takes the mark away.
    void showRunningLine(std::optional<int> line);
    [[nodiscard]] std::optional<int> runningLine() const { return m_runningLine; }
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
    /// Marks the lines of the cursor and of the running program.
    void markLines();
    void paintNumbers(QPaintEvent* event);

    QWidget* m_numbers;
    ProgramDraft* m_draft = nullptr;  ///< nothing in a box of its own
    std::optional<int> m_runningLine;
};

}  // namespace zlt
