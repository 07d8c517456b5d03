#include "programs/forms/ProgramSheet.h"

#include <QTextDocument>

#include "platform/Text.h"
#include "programs/forms/ProgramDraft.h"
#include "programs/forms/ProgramEditor.h"
#include "programs/forms/ViewCompiledForm.h"
#include "widgets/WireText.h"

namespace zlt {

ProgramSheet::ProgramSheet(const Services& services, ProgramDraft& draft, Controls controls)
    : m_controls(std::move(controls)), m_services(services), m_draft(draft) {
    QLabel& note = m_controls.toolNote;
    note.setObjectName(QStringLiteral("toolNote"));
    note.setTextFormat(Qt::PlainText);
    note.setWordWrap(true);
    note.setMargin(6);
    note.setAutoFillBackground(true);
    note.setBackgroundRole(QPalette::ToolTipBase);
    note.setForegroundRole(QPalette::ToolTipText);
    note.hide();
    m_controls.box.showDraft(draft);
    QObject::connect(&draft.document(), &QTextDocument::modificationChanged, &m_controls.box,
                     [this] { m_controls.showTitle(); });
    QLabel& lines = m_controls.compiledLines;
    QObject::connect(&draft.document(), &QTextDocument::contentsChanged, &lines, [&lines] {
        lines.setEnabled(false);
        lines.setToolTip(QObject::tr("The text has changed since this compile."));
    });
}

void ProgramSheet::continueFrom(const ProgramSheet& other) {
    const QLabel& theirs = other.m_controls.compiledLines;
    m_controls.compiledLines.setText(theirs.text());
    m_controls.compiledLines.setToolTip(theirs.toolTip());
    m_controls.compiledLines.setEnabled(theirs.isEnabledTo(theirs.parentWidget()));
    m_controls.showTitle();
}

std::string ProgramSheet::program() const {
    try {
        return m_controls.box.program();
    } catch (const NotLatin1&) {
        m_controls.box.selectForeignCharacter();
        throw;
    }
}

bool ProgramSheet::programEmpty() const {
    return m_controls.box.document()->isEmpty();
}

bool ProgramSheet::shows(std::string_view text) const {
    return m_controls.box.shows(text);
}

void ProgramSheet::setProgram(std::string_view text) {
    m_controls.box.setProgram(text);
}

void ProgramSheet::markSaved() {
    m_draft.markSaved();
}

void ProgramSheet::markUnsaved() {
    m_draft.document().setModified(true);
}

void ProgramSheet::SelectEditorLine(int line) {
    m_controls.box.SelectEditorLine(line);
}

void ProgramSheet::showCompiledLines(std::string_view caption) {
    m_controls.compiledLines.setText(shownText(caption));
    m_controls.compiledLines.setEnabled(true);
    m_controls.compiledLines.setToolTip({});
}

void ProgramSheet::showRunningLine(std::optional<int> line) {
    m_controls.box.showRunningLine(line);
}

void ProgramSheet::showListing(std::string_view listing) {
    ViewCompiledForm viewer(m_services, listing, m_controls.box.window());
    viewer.showModal();
}

void ProgramSheet::keepUnsaved() {
    (void)m_draft.keep();
}

void ProgramSheet::showRunningTool(std::string_view tool, std::int64_t process) {
    QLabel& note = m_controls.toolNote;
    note.setText(QObject::tr("%1 is running, process %2.  The panel waits until it has ended.")
                     .arg(fromUtf8(tool))
                     .arg(process));
    // Over the box's lower edge, where no layout has to make room first.
    const QRect box = m_controls.box.geometry();
    const int height = note.heightForWidth(box.width());
    note.setGeometry(box.left(), box.bottom() + 1 - height, box.width(), height);
    note.show();
    note.raise();
    note.repaint();
}

void ProgramSheet::clearRunningTool() {
    m_controls.toolNote.hide();
}

QString ProgramSheet::fileAndState(const QString& name) const {
    const QString notSaved = QObject::tr("not saved");
    if (!m_draft.document().isModified())
        return name;
    return name.isEmpty() ? notSaved : name + QStringLiteral(" \u2013 ") + notSaved;
}

}  // namespace zlt
