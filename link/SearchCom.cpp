#include "link/SearchCom.h"

#include <chrono>

#include "ui_SearchCom.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

constexpr std::chrono::milliseconds stepInterval{100};

}  // namespace

SearchCom::SearchCom(const Services& services, SearchMode mode, QWidget* parent)
    : Screen(services, parent),
      m_ui(std::make_unique<Ui::SearchCom>()),
      m_port(services.makePort(this)),
      m_search(*m_port, mode, *this) {
    m_ui->setupUi(this);
    m_ui->foundList->setVisible(mode == SearchMode::all);
    m_statusTimer.setObjectName(QStringLiteral("StatusTimer"));
    m_statusTimer.setTimerType(Qt::PreciseTimer);
    m_statusTimer.setInterval(stepInterval);
    teachManners();
    handlers.connect(&m_statusTimer, &QTimer::timeout, this, &SearchCom::StatusTimer_Timer);
    handlers.onClick(*m_ui->Cancel, [this](bool) { Cancel_Click(); });
}

SearchCom::~SearchCom() = default;

void SearchCom::Form_Load() {
    m_statusTimer.start();
}

void SearchCom::StatusTimer_Timer() {
    const DeviceSearch::State state = m_search.step();
    if (state == DeviceSearch::State::running) {
        // Behind a long step the next tick is overdue already: a waiting Cancel goes first.
        if (m_statusTimer.remainingTime() == 0)
            m_statusTimer.start();
        return;
    }
    m_statusTimer.stop();
    m_noPort = state == DeviceSearch::State::noPort;
    if (m_noPort)
        services().gate.message("No Port Available!");
    done(Accepted);
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
