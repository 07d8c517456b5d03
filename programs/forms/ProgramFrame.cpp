#include "programs/forms/ProgramFrame.h"

#include <QShortcut>
#include <utility>

#include "programs/forms/FileWatch.h"
#include "programs/forms/FindBar.h"
#include "programs/forms/ProgramDraft.h"
#include "ui_ProgramFrame.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

/// Of a file's name in the group's title, which must not make the group wider.
constexpr int longestName = 24;

}  // namespace

ProgramFrame::ProgramFrame(Handlers& handlers, const Services& services, PanelLink& link,
                           ProgramDraft& draft, PanelBelow below, QWidget* parent)
    : QGroupBox(parent),
      m_services(services),
      m_link(link),
      m_draft(draft),
      m_below(std::move(below)),
      m_ui(controlsOf<Ui::ProgramFrame>(*this)),
      m_findBar(*new FindBar(handlers, *m_ui->OrgProgram, this)),
      m_sheet(services, draft,
              {*m_ui->OrgProgram, *m_ui->CompiledLines, *new QLabel(this), [this] { showTitle(); },
               [](const std::vector<int>&) {}}),
      m_actions(services, link, m_sheet, draft.file()) {
    m_ui->findRow->addWidget(&m_findBar);
    m_findBar.makeShort();
    new FileWatch(this, *window(), handlers, [this] { m_actions.checkFile(); });
    connectButtons(handlers);
    connectKeys(handlers);
    showTitle();
}

ProgramFrame::~ProgramFrame() = default;

void ProgramFrame::connectButtons(Handlers& handlers) {
    handlers.onClick(*m_ui->NewProg, [this](bool) { m_actions.newProgram(); });
    handlers.onClick(*m_ui->OpenProg, [this](bool) { m_actions.openProgram(); });
    handlers.onClick(*m_ui->SaveProg, [this](bool) { m_actions.saveProgram(); });
    handlers.onClick(*m_ui->OpenText, [this](bool) { OpenText_Click(); });
    handlers.onClick(*m_ui->ViewCompiled, [this](bool) { m_actions.viewListing(); });
    // The tools may take their time, and the screen stands still meanwhile.
    const auto onLongClick = [&](QAbstractButton& button, std::function<void()> work) {
        handlers.onClick(button, [work = std::move(work)](bool) {
            const BusyCursor busy;
            work();
        });
    };
    onLongClick(*m_ui->CompileAll, [this] { m_actions.compile(); });
    onLongClick(*m_ui->DownloadSAP, [this] { m_actions.download(); });
    onLongClick(*m_ui->UploadSAP, [this] { m_actions.upload(); });
    onLongClick(*m_ui->clearSpace, [this] { m_actions.clearMemory(); });
}

void ProgramFrame::connectKeys(Handlers& handlers) {
    const auto onKey = [&](const QKeySequence& key, const std::function<void()>& work) {
        handlers.onSignal(*new QShortcut(key, this), &QShortcut::activated, work);
    };
    onKey(Qt::CTRL | Qt::Key_F, [this] { m_findBar.open(false); });
    onKey(Qt::Key_F3, [this] { m_findBar.findNext(); });
    onKey(Qt::SHIFT | Qt::Key_F3, [this] { m_findBar.findPrevious(); });
    onKey(Qt::CTRL | Qt::Key_S, [this] { m_actions.saveAgain(); });
}

void ProgramFrame::OpenText_Click() {
    /// The actions are the panel's again, whatever ends the editor.
    struct FrontAgain {
        ProgramActions& actions;
        ProgramSheet& sheet;
        ~FrontAgain() { actions.workOn(sheet); }
    };
    m_actions.hideProgress();
    {
        const FrontAgain frontAgain{m_actions, m_sheet};
        ProgramEditForm2 editor(m_services, m_actions, m_draft, m_below, window());
        editor.showDevice(m_link.connection.deviceId);
        editor.sheet().continueFrom(m_sheet);
        editor.placeCursor(m_ui->OrgProgram->textCursor().position());
        editor.showModal();
        m_ui->OrgProgram->setTextCursor(editor.cursor());
        m_sheet.continueFrom(editor.sheet());
    }
    m_ui->OrgProgram->takeFont();
    m_ui->OrgProgram->ensureCursorVisible();
}

void ProgramFrame::focusProgram() {
    m_ui->OrgProgram->setFocus(Qt::OtherFocusReason);
}

void ProgramFrame::showProgress(std::optional<std::int32_t> counter,
                                std::optional<ProgramState> state) {
    m_actions.showProgress(counter, state);
}

void ProgramFrame::hideProgress() {
    m_actions.hideProgress();
}

void ProgramFrame::forgetController() {
    m_actions.forgetController();
}

void ProgramFrame::showTitle() {
    QString name = fromUtf8(m_draft.file().name());
    if (name.size() > longestName)
        name = name.left(longestName - 5) + QChar(0x2026) + name.right(4);
    const QString state = m_sheet.fileAndState(name.replace(QLatin1Char('&'), QLatin1String("&&")));
    setTitle(state.isEmpty() ? tr("Program") : tr("Program \u2013 %1").arg(state));
}

}  // namespace zlt
