#pragma once

#include "programs/forms/ProgramEditor.h"

namespace zlt {

struct EditorSettings;

/// A program box with the keys of an editor: Tab and Shift+Tab move to stops or move whole lines,
/// Enter keeps the margin, Ctrl+Tab leaves the box.
class CodeEditor : public ProgramEditor {
    Q_OBJECT

 public:
    explicit CodeEditor(QWidget* parent = nullptr);

    /// Takes the settings as they are now, and again when they have changed. They outlive the box.
    void follow(EditorSettings& settings);

    /// Makes comments of the selected lines, or takes the comment signs away.
    void toggleComment();
    /// Makes the text larger or smaller by so many points; 0 puts it back to its own size.
    void zoom(int points);
    /// Puts the cursor to the beginning of line `line`, from 1, and the focus here. False for a
    /// line that the text does not have.
    bool goToLine(int line);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    template <class Edit>
    void editLines(const Edit& edit);
    bool moveByTab(bool back);
    void breakLine();

    EditorSettings* m_settings = nullptr;
    QFont m_ownFont;
};

}  // namespace zlt
