#include "terminal/forms/BusForm.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>
#include <array>
#include <utility>

#include "link/BusText.h"
#include "platform/Files.h"
#include "ui_BusForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

/// How often the list is brought up to date at the most; and no more often than the poll can spare
/// the time for: each time is followed by many times its own length without.
constexpr std::chrono::milliseconds listingInterval{200};
constexpr int timesSpared = 100;
constexpr int usualHeight = 420;

QString counted(std::size_t exchanges) {
    return exchanges == 1 ? BusForm::tr("1 exchange") : BusForm::tr("%1 exchanges").arg(exchanges);
}

}  // namespace

BusForm::BusForm(const Services& world, QWidget& owner, std::shared_ptr<WindowPlaces> places)
    : SideScreen(world, owner, std::move(places)),
      m_ui(std::make_unique<Ui::BusForm>()),
      m_listing(*services().busLog) {
    m_ui->setupUi(this);
    m_refreshTimer.setObjectName(QStringLiteral("refreshTimer"));
    m_refreshTimer.setInterval(listingInterval);
    setUpTable();
    applyScreenRules();
    connectHandlers();
    resize(minimumSizeHint().width(), usualHeight);
}

BusForm::~BusForm() = default;

void BusForm::setUpTable() {
    QTableView& table = *m_ui->List;
    table.setModel(&m_model);
    table.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + 4);
    table.verticalHeader()->setMinimumSectionSize(1);
    table.horizontalHeader()->setHighlightSections(false);
    const auto widest = [&](const char* text) {
        constexpr int margins = 12;
        return table.fontMetrics().horizontalAdvance(QString::fromLatin1(text)) + margins;
    };
    constexpr std::array<const char*, BusModel::columns> samples{
        "23:59:59.999",     "COM15 115200",       "Device",     "Asked by",
        "HSPD=-2147483648", "#01ZLT-R-NX-42<CR>", "1200.00 ms", "PORT LOST"};
    for (int column = 0; column < BusModel::columns; ++column)
        table.setColumnWidth(column, widest(samples.at(static_cast<std::size_t>(column))));
    table.horizontalHeader()->setSectionResizeMode(BusModel::reply, QHeaderView::Stretch);
}

void BusForm::connectHandlers() {
    handlers.onTick(m_refreshTimer, [this] { return refreshTimer_Timer(); });
    handlers.onClick(*m_ui->ShowPoll, [this](bool) { Filter_Changed(); });
    handlers.onClick(*m_ui->Pause, [this](bool) { Pause_Click(); });
    handlers.onClick(*m_ui->Copy, [this](bool) { Copy_Click(); });
    handlers.onClick(*m_ui->Save, [this](bool) { Save_Click(); });
    handlers.onClick(*m_ui->Close, [this](bool) { closeScreen(); });
    connect(m_ui->Filter, &QLineEdit::textChanged, this,
            [this] { handlers.run([this] { Filter_Changed(); }); });
    auto* copy = new QShortcut(QKeySequence::Copy, m_ui->List);
    copy->setContext(Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [this] { handlers.run([this] { Copy_Click(); }); });
}

void BusForm::showEvent(QShowEvent* event) {
    SideScreen::showEvent(event);
    if (event->spontaneous())
        return;
    tell({});
    refresh();
    m_ui->List->scrollToBottom();
    m_refreshTimer.start();
}

void BusForm::hideEvent(QHideEvent* event) {
    SideScreen::hideEvent(event);
    if (event->spontaneous())
        return;
    m_refreshTimer.stop();
}

std::chrono::milliseconds BusForm::refreshTimer_Timer() {
    QElapsedTimer listing;
    listing.start();
    if (!isMinimized() && refresh())
        m_ui->List->viewport()->repaint();
    return std::max(listingInterval, std::chrono::milliseconds(listing.elapsed() * timesSpared));
}

/// False when there is nothing new.
bool BusForm::refresh() {
    QScrollBar& bar = *m_ui->List->verticalScrollBar();
    const bool follows = bar.value() == bar.maximum();
    const auto fresh = m_listing.takeNew();
    if (fresh.empty())
        return false;
    const int before = bar.value();
    const int removed = m_model.append(fresh);
    if (follows)
        m_ui->List->scrollToBottom();
    else
        bar.setValue(std::max(0, before - removed));  // what is being read stays where it is
    showCount();
    return true;
}

void BusForm::showCount() {
    const QString count = counted(static_cast<std::size_t>(m_model.rowCount()));
    m_ui->Count->setText(m_listing.paused() ? tr("%1, paused").arg(count) : count);
}

void BusForm::Filter_Changed() {
    m_listing.setFilter({m_ui->ShowPoll->isChecked(), toUtf8(m_ui->Filter->text())});
    m_model.clear();
    refresh();
    m_ui->List->scrollToBottom();
    showCount();
}

void BusForm::Pause_Click() {
    m_listing.setPaused(m_ui->Pause->isChecked());
    refresh();
    showCount();
}

std::vector<BusRecord> BusForm::chosen() const {
    std::vector<int> rows;
    for (const QModelIndex& index : m_ui->List->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    if (rows.empty())
        for (int row = 0; row < m_model.rowCount(); ++row)
            rows.push_back(row);
    std::vector<BusRecord> records;
    records.reserve(rows.size());
    for (const int row : rows)
        records.push_back(m_model.row(row));
    return records;
}

void BusForm::Copy_Click() {
    const auto records = chosen();
    QGuiApplication::clipboard()->setText(fromUtf8(busTable(records, "\n")));
    tell(tr("%1 copied.").arg(counted(records.size())));
}

void BusForm::Save_Click() {
    const auto records = chosen();  // as it was when the button was pressed
    const auto name = [this] {
        const OwnDialog dialog(*this);
        return chooseSaveName(services().gate,
                              {"Save Exchanges As", "Text Files (*.txt)|*.txt", "bus.txt"});
    }();
    if (!name)
        return;
    const auto failure = services().files.writeWhole(*name, busTable(records, "\r\n"));
    tell(failure ? fromUtf8(notSaved("The exchanges", *name, *failure))
                 : tr("%1 saved.").arg(counted(records.size())));
}

void BusForm::tell(const QString& sentence) {
    m_ui->Note->setText(sentence);
}

}  // namespace zlt
