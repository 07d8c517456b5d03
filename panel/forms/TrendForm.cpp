#include "panel/forms/TrendForm.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <array>
#include <stdexcept>
#include <utility>

#include "panel/TrendCsv.h"
#include "panel/forms/TrendLook.h"
#include "ui_TrendForm.h"
#include "widgets/StopButton.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

using namespace std::chrono_literals;

constexpr std::array<TrendView::Span, 4> spans{10s, 1min, 10min, 1h};

std::string pngOf(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG"))
        throw std::runtime_error("The picture could not be made.");
    return bytes.toStdString();
}

}  // namespace

TrendForm::TrendForm(const Services& world, QWidget& owner, std::shared_ptr<WindowPlaces> places,
                     const TrendRecord& record, TrendPlot::Clock now)
    : SideScreen(world, owner, std::move(places)),
      m_record(record),
      m_ui(std::make_unique<Ui::TrendForm>()) {
    m_ui->setupUi(this);
    m_hint = m_ui->trendNote->text();
    for (const TrendView::Span span : spans)
        m_ui->trendSpan->addItem(fromUtf8(trendSpanText(span)));
    m_ui->trendPlot->showRecord(record, std::move(now));
    applyScreenRules();
    connectControls();
    showView();
}

TrendForm::~TrendForm() = default;

void TrendForm::connectControls() {
    handlers.connect(m_ui->trendSpan, &QComboBox::activated, this, &TrendForm::trendSpan_Changed);
    handlers.onClick(*m_ui->trendPause, [this](bool on) { m_ui->trendPlot->setPaused(on); });
    handlers.onClick(*m_ui->trendAutoscale, [this](bool on) { m_ui->trendPlot->setAutoscale(on); });
    handlers.onClick(*m_ui->trendSaveCsv, [this](bool) { trendSaveCsv_Click(); });
    handlers.onClick(*m_ui->trendSavePng, [this](bool) { trendSavePng_Click(); });
    handlers.onClick(*m_ui->trendCopy, [this](bool) { trendCopy_Click(); });
    handlers.onClick(*m_ui->trendClose, [this](bool) { closeScreen(); });
    connect(m_ui->trendPlot, &TrendPlot::viewChanged, this, &TrendForm::showView);
}

void TrendForm::showDevice(std::string_view address) {
    setWindowTitle(tr("Trend \u2013 %1").arg(stopTitle(address)));
}

void TrendForm::trendSpan_Changed(int index) {
    m_ui->trendPlot->setSpan(spans.at(static_cast<std::size_t>(index)));
}

void TrendForm::showView() {
    const TrendView& view = m_ui->trendPlot->view();
    m_ui->trendSpan->showText(trendSpanText(view.span()));
    m_ui->trendPause->setChecked(!view.following());
}

void TrendForm::trendSaveCsv_Click() {
    save("Comma Separated Values (*.csv)|*.csv", ".csv", [this] { return trendCsv(m_record); });
}

void TrendForm::trendSavePng_Click() {
    // As it looks at the click, whatever comes while the name is chosen.
    const QImage picture = m_ui->trendPlot->picture();
    save("Pictures (*.png)|*.png", ".png", [&picture] { return pngOf(picture); });
}

void TrendForm::save(const char* filter, const char* suffix,
                     const std::function<std::string()>& content) {
    say({});
    const auto name = [&] {
        const OwnDialog dialog(*this);
        return chooseSaveName(services().gate,
                              {"Save Trend As", filter,
                               "trend " + trendDateText(m_record.began()).toStdString() + suffix});
    }();
    if (!name)
        return;
    const BusyCursor busy;
    if (const auto failure = services().files.writeWhole(*name, content()))
        say(fromUtf8(notSaved("The trend", *name, *failure)));
    else
        say(tr("Saved in %1.").arg(fromUtf8(utf8FromPath(*name))));
}

void TrendForm::trendCopy_Click() {
    QGuiApplication::clipboard()->setImage(m_ui->trendPlot->picture());
    say(tr("The picture is in the clipboard."));
}

void TrendForm::say(const QString& sentence) {
    m_ui->trendNote->setText(sentence.isEmpty() ? m_hint : sentence);
}

}  // namespace zlt
