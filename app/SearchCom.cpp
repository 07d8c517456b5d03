#include "app/SearchCom.h"

#include <QElapsedTimer>
#include <chrono>

#include "ui_SearchCom.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr std::chrono::milliseconds stepInterval{100};

}  // namespace

SearchCom::SearchCom(const Services& world, SearchMode mode, QWidget* parent)
    : Screen(world, parent),
      m_ui(std::make_unique<Ui::SearchCom>()),
      MSComm1(services().makePort()),
      m_search(*MSComm1, *services().busLog, mode, *this) {
    m_ui->setupUi(this);
    m_ui->foundList->setVisible(mode == SearchMode::all);
    m_statusTimer.setObjectName(QStringLiteral("StatusTimer"));
    m_statusTimer.setTimerType(Qt::PreciseTimer);
    m_statusTimer.setInterval(stepInterval);
    applyScreenRules();
    handlers.onTick(m_statusTimer, [this] { return StatusTimer_Timer(); });
    handlers.onClick(*m_ui->Cancel, [this](bool) { Cancel_Click(); });
}

SearchCom::~SearchCom() = default;

void SearchCom::Form_Load() {
    m_statusTimer.start();
}

std::chrono::milliseconds SearchCom::StatusTimer_Timer() {
    QElapsedTimer step;
    step.start();
    const DeviceSearch::State state = m_search.step();
    if (state == DeviceSearch::State::running)
        return stepInterval - std::chrono::milliseconds(step.elapsed());
    m_statusTimer.stop();
    m_noPort = state == DeviceSearch::State::noPort;
    if (m_noPort)
        services().gate.message("No Port Available!");
    done(Accepted);
    return stepInterval;
}

void SearchCom::showText(std::string_view text) {
    m_ui->ProgressLabel->setText(fromUtf8(text));
    m_ui->ProgressLabel->repaint();  // the step blocks
}

void SearchCom::showProgress(int value, int maximum) {
    m_ui->Progress->setMaximum(maximum);
    m_ui->Progress->setValue(value);
}

void SearchCom::showResults(std::string_view results) {
    m_ui->foundList->setPlainText(fromUtf8(results).trimmed());
    m_ui->foundList->moveCursor(QTextCursor::End);
}

}  // namespace zlt
