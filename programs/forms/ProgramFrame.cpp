#include "programs/forms/ProgramFrame.h"

#include "platform/Text.h"
#include "programs/forms/ProgramDraft.h"
#include "programs/forms/ViewCompiledForm.h"
#include "ui_ProgramFrame.h"
#include "widgets/WireText.h"

namespace zlt {

ProgramFrame::ProgramFrame(QWidget* parent)
    : QGroupBox(parent), m_ui(std::make_unique<Ui::ProgramFrame>()), m_toolNote(new QLabel(this)) {
    m_ui->setupUi(this);
    m_toolNote->setObjectName(QStringLiteral("toolNote"));
    m_toolNote->setTextFormat(Qt::PlainText);
    m_toolNote->setWordWrap(true);
    m_toolNote->setMargin(6);
    m_toolNote->setAutoFillBackground(true);
    m_toolNote->setBackgroundRole(QPalette::ToolTipBase);
    m_toolNote->setForegroundRole(QPalette::ToolTipText);
    m_toolNote->hide();
}

ProgramFrame::~ProgramFrame() = default;

void ProgramFrame::connectTo(Handlers& handlers, const Services& services, PanelLink& link,
                             ProgramDraft& draft) {
    m_services = &services;
    m_draft = &draft;
    m_actions = std::make_unique<ProgramActions>(services, link, *this);
    m_ui->OrgProgram->showDraft(draft);
    connect(&draft.document(), &QTextDocument::modificationChanged, this,
            &ProgramFrame::showWhetherSaved);
    connect(&draft.document(), &QTextDocument::contentsChanged, this, [this] {
        m_ui->CompiledLines->setEnabled(false);
        m_ui->CompiledLines->setToolTip(tr("The text has changed since this compile."));
    });
    showWhetherSaved();
    connectButtons(handlers);
}

void ProgramFrame::connectButtons(Handlers& handlers) {
    handlers.onClick(*m_ui->NewProg, [this](bool) { m_actions->newProgram(); });
    handlers.onClick(*m_ui->OpenProg, [this](bool) { m_actions->openProgram(); });
    handlers.onClick(*m_ui->SaveProg, [this](bool) { m_actions->saveProgram(); });
    handlers.onClick(*m_ui->ViewCompiled, [this](bool) { m_actions->viewListing(); });
    // The tools may take their time, and the screen stands still meanwhile.
    const auto onLongClick = [&](QAbstractButton& button, std::function<void()> work) {
        handlers.onClick(button, [work = std::move(work)](bool) {
            const BusyCursor busy;
            work();
        });
    };
    onLongClick(*m_ui->CompileAll, [this] { m_actions->compile(); });
    onLongClick(*m_ui->DownloadSAP, [this] { m_actions->download(); });
    onLongClick(*m_ui->UploadSAP, [this] { m_actions->upload(); });
    onLongClick(*m_ui->clearSpace, [this] { m_actions->clearMemory(); });
}

void ProgramFrame::focusProgram() {
    m_ui->OrgProgram->setFocus(Qt::OtherFocusReason);
}

std::string ProgramFrame::program() const {
    try {
        return m_ui->OrgProgram->program();
    } catch (const NotLatin1&) {
        m_ui->OrgProgram->selectForeignCharacter();
        throw;
    }
}

bool ProgramFrame::programEmpty() const {
    return m_ui->OrgProgram->document()->isEmpty();
}

void ProgramFrame::setProgram(std::string_view text) {
    m_ui->OrgProgram->setProgram(text);
}

void ProgramFrame::markSaved() {
    m_draft->markSaved();
}

void ProgramFrame::keepUnsaved() {
    (void)m_draft->keep();
}

void ProgramFrame::showWhetherSaved() {
    setTitle(m_draft->document().isModified() ? tr("Program \u2013 not saved") : tr("Program"));
}

void ProgramFrame::SelectEditorLine(int line) {
    m_ui->OrgProgram->SelectEditorLine(line);
}

void ProgramFrame::showCompiledLines(std::string_view caption) {
    m_ui->CompiledLines->setText(shownText(caption));
    m_ui->CompiledLines->setEnabled(true);
    m_ui->CompiledLines->setToolTip({});
}

void ProgramFrame::showListing(std::string_view listing) {
    ViewCompiledForm viewer(*m_services, listing, window());
    viewer.showModal();
}

void ProgramFrame::showRunningTool(std::string_view tool, std::int64_t process) {
    m_toolNote->setText(tr("%1 is running, process %2.  The panel waits until it has ended.")
                            .arg(fromUtf8(tool))
                            .arg(process));
    // Over the box's lower edge, where no layout has to make room first.
    const QRect box = m_ui->OrgProgram->geometry();
    const int height = m_toolNote->heightForWidth(box.width());
    m_toolNote->setGeometry(box.left(), box.bottom() + 1 - height, box.width(), height);
    m_toolNote->show();
    m_toolNote->raise();
    m_toolNote->repaint();
}

void ProgramFrame::clearRunningTool() {
    m_toolNote->hide();
}

}  // namespace zlt
