#include "programs/forms/ProgramEditForm2.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTextBlock>
#include <QVBoxLayout>
#include <utility>

#include "platform/NumberConversion.h"
#include "programs/forms/FileWatch.h"
#include "programs/forms/FindBar.h"
#include "programs/forms/ProgramDraft.h"
#include "ui_ProgramEditForm2.h"
#include "widgets/Fields.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

constexpr auto firstLook = 10ms;
/// How soon the poll goes on after an edit was taken back.
constexpr auto resting = 200ms;
constexpr QSize roomy(1000, 660);
constexpr QSize besideWindow(20, 60);  ///< its frame and title

}  // namespace

ProgramEditForm2::ProgramEditForm2(const Services& world, ProgramActions& actions,
                                   ProgramDraft& draft, PanelBelow below, QWidget* parent)
    : Screen(world, parent),
      m_actions(actions),
      m_draft(draft),
      m_below(std::move(below)),
      m_ui(controlsOf<Ui::ProgramEditForm2>(*this)),
      m_findBar(*new FindBar(handlers, *m_ui->ProgramText, this)),
      m_sheet(services(), draft,
              {*m_ui->ProgramText, *m_ui->CompiledLines, *new QLabel(this), [this] { showTitle(); },
               [this](const std::vector<int>& lines) { showErrors(lines); }}) {
    m_ui->findRow->addWidget(&m_findBar);
    resize(roomy.boundedTo(screen()->availableSize() - besideWindow));
    m_ui->lineRow->hide();
    m_ui->ProgramText->follow(draft.editorSettings());
    m_actions.workOn(m_sheet);
    m_followTimer.setObjectName(QStringLiteral("followTimer"));
    m_followTimer.setInterval(firstLook);
    makeMenus();
    applyScreenRules();
    connectControls();
    showErrors({});
    showTitle();
    showPlace();
    m_followTimer.start();
}

ProgramEditForm2::~ProgramEditForm2() = default;

void ProgramEditForm2::connectControls() {
    handlers.onClick(*m_ui->NewProg, [this](bool) { m_actions.newProgram(); });
    handlers.onClick(*m_ui->OpenProg, [this](bool) { m_actions.openProgram(); });
    handlers.onClick(*m_ui->SaveProg, [this](bool) { m_actions.saveProgram(); });
    handlers.onClick(*m_ui->CompileAll, [this](bool) { compile(); });
    handlers.onClick(*m_ui->ViewCompiled, [this](bool) { m_actions.viewListing(); });
    handlers.onClick(*m_ui->DownloadSAP, [this](bool) { download(); });
    handlers.onClick(*m_ui->errorLine, [this](bool) { goToNextError(); });
    handlers.onClick(*m_ui->Close, [this](bool) { Close_Click(); });
    handlers.connect(m_ui->LineNumber, &QLineEdit::returnPressed, this,
                     &ProgramEditForm2::LineNumber_Enter);
    handlers.onTick(m_followTimer, [this] { return follow(); });
    connectStop(m_ui->stopBox->stop(), m_below.stop, StopKey::f12);
    new FileWatch(this, *this, handlers, [this] { m_actions.checkFile(); });
    connect(m_ui->ProgramText, &QPlainTextEdit::cursorPositionChanged, this,
            [this] { showPlace(); });
    connect(&m_draft.document(), &QTextDocument::contentsChanged, this, [this] { noteChange(); });
}

void ProgramEditForm2::showDevice(std::string_view deviceId) {
    m_ui->stopBox->showDevice(deviceId);
}

void ProgramEditForm2::placeCursor(int position) {
    QTextCursor place(&m_draft.document());
    place.setPosition(position);
    m_ui->ProgramText->setTextCursor(place);
}

QTextCursor ProgramEditForm2::cursor() const {
    return m_ui->ProgramText->textCursor();
}

void ProgramEditForm2::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (event->spontaneous())
        return;
    m_ui->ProgramText->setFocus(Qt::OtherFocusReason);
    m_ui->ProgramText->centerCursor();
}

void ProgramEditForm2::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || (m_findBar.isHidden() && m_ui->lineRow->isHidden())) {
        Screen::keyPressEvent(event);
        return;
    }
    m_ui->lineRow->hide();
    m_findBar.shut();
}

// Files, compiler, controller

void ProgramEditForm2::compile() {
    const BusyCursor busy;
    m_actions.compile();
}

void ProgramEditForm2::download() {
    const BusyCursor busy;
    m_actions.download();
}

void ProgramEditForm2::save() {
    m_actions.saveAgain();
    if (m_draft.file().known() && !m_draft.document().isModified())
        m_ui->note->setText(tr("Saved to %1.").arg(fromUtf8(utf8FromPath(m_draft.file().path()))));
}

void ProgramEditForm2::showTitle() {
    const QString state = m_sheet.fileAndState(fromUtf8(m_draft.file().name()));
    setWindowTitle(state.isEmpty() ? tr("Program Editor")
                                   : tr("%1 \u2013 Program Editor").arg(state));
}

void ProgramEditForm2::noteChange() {
    m_ui->note->clear();
    // Nothing says any more that the lines are the controller's, until the next look.
    m_sheet.showRunningLine(std::nullopt);
    if (m_draft.document().isEmpty())
        showErrors({});
}

std::chrono::milliseconds ProgramEditForm2::follow() {
    if (m_actions.showsDownloaded()) {
        m_following = true;
        return m_below.poll();
    }
    if (std::exchange(m_following, false))
        m_below.rest();
    return resting;
}

void ProgramEditForm2::Close_Click() {
    m_followTimer.stop();
    done(Accepted);
}

// The places in the text

void ProgramEditForm2::showPlace() {
    const QTextCursor cursor = m_ui->ProgramText->textCursor();
    m_ui->place->setText(tr("Line %1 of %2, column %3")
                             .arg(cursor.blockNumber() + 1)
                             .arg(m_draft.document().blockCount())
                             .arg(cursor.positionInBlock() + 1));
}

void ProgramEditForm2::openLineRow() {
    m_ui->LineNumber->setText(QString::number(cursor().blockNumber() + 1));
    m_ui->lineNote->setText(tr("of %1").arg(m_draft.document().blockCount()));
    m_ui->lineRow->show();
    pointToField(*m_ui->LineNumber);
}

void ProgramEditForm2::LineNumber_Enter() {
    const auto line = parseInteger(toUtf8(m_ui->LineNumber->text().trimmed()));
    if (line && m_ui->ProgramText->goToLine(*line)) {
        m_ui->lineRow->hide();
        return;
    }
    m_ui->lineNote->setText(tr("There are lines 1 to %1.").arg(m_draft.document().blockCount()));
    pointToField(*m_ui->LineNumber);
}

void ProgramEditForm2::showErrors(const std::vector<int>& lines) {
    m_errors.clear();
    m_nextError = 0;
    for (const int line : lines) {
        const QTextBlock block = m_draft.document().findBlockByNumber(line - 1);
        if (block.isValid())
            m_errors.emplace_back(block);
    }
    showErrorLine();
}

void ProgramEditForm2::goToNextError() {
    if (m_errors.empty())
        return;
    m_nextError %= m_errors.size();
    m_sheet.SelectEditorLine(m_errors[m_nextError].blockNumber() + 1);
    ++m_nextError;
    showErrorLine();
}

/// The line that the button goes to next, and how many there are.
void ProgramEditForm2::showErrorLine() {
    m_ui->errorLine->setVisible(!m_errors.empty());
    if (m_errors.empty())
        return;
    const std::size_t next = m_nextError % m_errors.size();
    const int line = m_errors[next].blockNumber() + 1;
    m_ui->errorLine->setText(
        m_errors.size() == 1
            ? tr("Error in line %1").arg(line)
            : tr("Error %1 of %2: line %3").arg(next + 1).arg(m_errors.size()).arg(line));
}

// Menus

void ProgramEditForm2::addEntry(QMenu& menu, const QString& text, const QList<QKeySequence>& keys,
                                std::function<void()> work) {
    QAction* entry = menu.addAction(text);
    entry->setShortcuts(keys);
    connect(entry, &QAction::triggered, this,
            [this, work = std::move(work)] { handlers.run(work); });
}

void ProgramEditForm2::makeMenus() {
    auto* bar = new QMenuBar(this);
    bar->setNativeMenuBar(false);
    layout()->setMenuBar(bar);
    makeFileMenu(*bar->addMenu(tr("&File")));
    makeEditMenu(*bar->addMenu(tr("&Edit")));
    makeViewMenu(*bar->addMenu(tr("&View")));
}

void ProgramEditForm2::makeFileMenu(QMenu& menu) {
    addEntry(menu, tr("&New"), {Qt::CTRL | Qt::Key_N}, [this] { m_actions.newProgram(); });
    addEntry(menu, tr("&Open..."), {Qt::CTRL | Qt::Key_O}, [this] { m_actions.openProgram(); });
    addEntry(menu, tr("&Save"), {Qt::CTRL | Qt::Key_S}, [this] { save(); });
    addEntry(menu, tr("Save &as..."), {Qt::CTRL | Qt::SHIFT | Qt::Key_S},
             [this] { m_actions.saveProgram(); });
    menu.addSeparator();
    addEntry(menu, tr("&Compile"), {Qt::Key_F7}, [this] { compile(); });
    addEntry(menu, tr("&Listing..."), {Qt::Key_F8}, [this] { m_actions.viewListing(); });
    addEntry(menu, tr("Next &error"), {Qt::Key_F4}, [this] { goToNextError(); });
    menu.addSeparator();
    addEntry(menu, tr("C&lose"), {Qt::CTRL | Qt::Key_W}, [this] { Close_Click(); });
}

void ProgramEditForm2::makeEditMenu(QMenu& menu) {
    CodeEditor& box = *m_ui->ProgramText;
    addEntry(menu, tr("&Undo"), {QKeySequence::Undo}, [&box] { box.undo(); });
    addEntry(menu, tr("&Redo"), {QKeySequence::Redo}, [&box] { box.redo(); });
    menu.addSeparator();
    addEntry(menu, tr("&Find..."), {Qt::CTRL | Qt::Key_F}, [this] { m_findBar.open(false); });
    addEntry(menu, tr("Re&place..."), {Qt::CTRL | Qt::Key_H}, [this] { m_findBar.open(true); });
    addEntry(menu, tr("Find &next"), {Qt::Key_F3}, [this] { m_findBar.findNext(); });
    addEntry(menu, tr("Find pre&vious"), {Qt::SHIFT | Qt::Key_F3},
             [this] { m_findBar.findPrevious(); });
    addEntry(menu, tr("&Go to line..."), {Qt::CTRL | Qt::Key_G}, [this] { openLineRow(); });
    menu.addSeparator();
    addEntry(menu, tr("&Comment on and off"), {Qt::CTRL | Qt::Key_Slash},
             [&box] { box.toggleComment(); });
}

void ProgramEditForm2::makeViewMenu(QMenu& menu) {
    addEntry(menu, tr("&Larger"), {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
             [this] { zoom(1); });
    addEntry(menu, tr("&Smaller"), {Qt::CTRL | Qt::Key_Minus}, [this] { zoom(-1); });
    addEntry(menu, tr("&Normal size"), {Qt::CTRL | Qt::Key_0}, [this] { zoom(0); });
    menu.addSection(tr("Tab key"));
    addTabChoice(menu, tr("Tab fills up to stops of &2"), 2);
    addTabChoice(menu, tr("Tab fills up to stops of &4"), 4);
    addTabChoice(menu, tr("Tab fills up to stops of &8"), 8);
    addTabChoice(menu, tr("Tab &moves on to the next control"), 0);
}

void ProgramEditForm2::addTabChoice(QMenu& menu, const QString& text, int blanks) {
    auto* choices = menu.findChild<QActionGroup*>();
    if (!choices)
        choices = new QActionGroup(&menu);
    QAction* entry = menu.addAction(text);
    entry->setCheckable(true);
    entry->setChecked(m_draft.editorSettings().tabBlanks == blanks);
    choices->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, blanks] {
        m_draft.editorSettings().tabBlanks = blanks;
        m_ui->ProgramText->follow(m_draft.editorSettings());
    });
}

void ProgramEditForm2::zoom(int points) {
    m_ui->ProgramText->zoom(points);
}

}  // namespace zlt
