#include "panel/forms/TrendPainter.h"

#include <QCoreApplication>
#include <QStyle>
#include <cmath>

#include "panel/forms/TrendLook.h"

namespace zlt {
namespace {

constexpr int margin = 8;
constexpr int betweenPlots = 10;
/// Half of a curve that runs along the edge of its plot.
constexpr int overEdge = 2;

constexpr int mostTexts = 200;

/// How the height is shared among the plots.
constexpr std::array<int, trendPlots> shares{5, 3, 3};

/// From one grid line to the next, at the least, in lines of text.
constexpr double textPerStep = 1.5;

/// The same area as `columns`, which stand side by side from the left: what neighbours have in
/// common as one rectangle, since rows are filled many times as fast as columns.
QVector<QRect> inRows(const QVector<QRect>& columns) {
    constexpr qsizetype mostTogether = 16;
    QVector<QRect> rects;
    rects.reserve(columns.size());
    for (qsizetype begin = 0, end = 0; begin < columns.size(); begin = end) {
        int top = columns[begin].top(), bottom = columns[begin].bottom();
        for (++end; end < columns.size() && end - begin < mostTogether &&
                    columns[end].left() == columns[end - 1].left() + 1;
             ++end) {
            if (columns[end].top() > bottom || columns[end].bottom() < top)
                break;
            top = std::max(top, columns[end].top());
            bottom = std::min(bottom, columns[end].bottom());
        }
        rects.append({{columns[begin].left(), top}, QPoint(columns[end - 1].right(), bottom)});
        for (qsizetype index = begin; index < end; ++index) {
            const QRect& column = columns[index];
            if (column.top() < top)
                rects.append(QRect(column.topLeft(), QPoint(column.right(), top - 1)));
            if (column.bottom() > bottom)
                rects.append({{column.left(), bottom + 1}, column.bottomRight()});
        }
    }
    return rects;
}

}  // namespace

TrendLayout::TrendLayout(const QSize& size, const QFontMetrics& metrics) {
    const int line = metrics.height();
    laneHeight = line;
    const int left = 2 * margin + metrics.horizontalAdvance(QStringLiteral("-2147483648"));
    const int width = std::max(size.width() - left - margin, 1);
    const int lanes = static_cast<int>(trendLanes.size()) * laneHeight;
    const int forPlots = size.height() - 2 * margin - lanes - line -
                         static_cast<int>(trendPlots) * (betweenPlots + line);
    int all = 0, top = margin;
    for (const int share : shares)
        all += share;
    for (std::size_t plot = 0; plot < trendPlots; ++plot) {
        top += line;  // its legend
        plots[plot] = QRect(left, top, width, std::max(forPlots * shares[plot] / all, 1));
        top = plots[plot].bottom() + 1 + betweenPlots;
    }
    band = QRect(left, top, width, lanes);
}

std::optional<std::size_t> TrendLayout::plotAt(const QPoint& place) const {
    for (std::size_t plot = 0; plot < trendPlots; ++plot)
        if (plots[plot].contains(place))
            return plot;
    return std::nullopt;
}

double TrendLayout::acrossAt(int x) const {
    return static_cast<double>(x - band.left()) / band.width();
}

TrendPainter::TrendPainter(QPainter& painter, const QSize& size, double pixels,
                           const QPalette& palette, TrendMemory& memory)
    : m_painter(painter),
      m_size(size),
      m_pixels(pixels),
      m_palette(palette),
      m_layout(size, painter.fontMetrics()),
      m_memory(memory) {}

int TrendPainter::toPixels(double length) const {
    return static_cast<int>(std::lround(length * m_pixels));
}

void TrendPainter::write(const QRect& place, Qt::Alignment alignment, const QString& text) {
    if (m_memory.texts.size() > mostTexts)
        m_memory.texts.clear();
    QStaticText& laidOut = m_memory.texts[text];
    if (laidOut.text().isEmpty()) {
        laidOut = QStaticText(text);
        laidOut.setTextFormat(Qt::PlainText);
        laidOut.prepare({}, m_painter.font());
    }
    const QRect at =
        QStyle::alignedRect(Qt::LeftToRight, alignment, laidOut.size().toSize(), place);
    m_painter.drawStaticText(at.topLeft(), laidOut);
}

void TrendPainter::paint(const Subject& subject, std::array<TrendScale, trendPlots>& scales) {
    m_painter.fillRect(QRect(QPoint(), m_size), m_palette.color(QPalette::Base));
    m_cut.count = std::max(toPixels(m_layout.band.width()), 1);
    m_cut.column = std::max(subject.span / m_cut.count, TrendView::Span(1));
    // Columns begin at the same times in each frame, or the curves would shimmer as they go by.
    const auto sinceStart = subject.right.time_since_epoch();
    m_cut.from =
        TrendTime(sinceStart - sinceStart % m_cut.column) - (m_cut.count - 1) * m_cut.column;
    m_pieces = &m_memory.window.pieces(subject.record, m_cut);
    paintTimeAxis(subject);
    for (std::size_t plot = 0; plot < trendPlots; ++plot)
        paintPlot(plot, subject, scales[plot]);
    paintBand();
    if (subject.pointer && m_layout.acrossAt(subject.pointer->x()) >= 0)
        paintReadOut(subject);
}

void TrendPainter::paintPlot(std::size_t plot, const Subject& subject, TrendScale& scale) {
    const QRect& place = m_layout.plots[plot];
    std::vector<std::pair<const TrendCurveLook*, std::vector<TrendBar>>> curves;
    for (const TrendCurveLook& look : trendCurves)
        if (look.plot == plot)
            curves.emplace_back(&look, trendBars(*m_pieces, look.series, m_cut.count));
    if (subject.autoscale) {
        std::vector<const std::vector<TrendBar>*> all;
        all.reserve(curves.size());
        for (const auto& [look, bars] : curves)
            all.push_back(&bars);
        scale = trendFit(all);
    }
    paintValueAxis(place, scale);
    int x = place.left();
    const QFontMetrics metrics = m_painter.fontMetrics();
    for (const auto& [look, bars] : curves) {
        const QColor colour = trendColour(look->colour, m_palette);
        paintCurve(place, bars, scale, look->thickness, colour);
        const QString name = QCoreApplication::translate("Trend", look->name);
        m_painter.setPen(colour);
        const int width = metrics.horizontalAdvance(name);
        write(QRect(x, place.top() - metrics.height() - 1, width, metrics.height()), Qt::AlignLeft,
              name);
        x += width + 2 * margin;
    }
}

void TrendPainter::paintValueAxis(const QRect& plot, const TrendScale& scale) {
    const QFontMetrics metrics = m_painter.fontMetrics();
    const int most =
        std::max(static_cast<int>(plot.height() / (textPerStep * metrics.height())), 2);
    const double step = trendStep(scale.range(), most);
    const QColor grid = trendGridColour(m_palette);
    const auto first = std::llround(std::ceil(scale.low / step));
    const auto last = std::llround(std::floor(scale.high / step + 1e-3));
    for (auto line = first; line <= last; ++line) {
        const double value = static_cast<double>(line) * step;
        const int y =
            plot.bottom() - static_cast<int>(std::lround(scale.place(value) * (plot.height() - 1)));
        m_painter.fillRect(plot.left(), y, plot.width(), 1, grid);
        m_painter.setPen(m_palette.color(QPalette::Text));
        write(QRect(0, y - metrics.height() / 2, plot.left() - margin / 2, metrics.height()),
              Qt::AlignRight | Qt::AlignVCenter, QString::number(value, 'f', 0));
    }
}

void TrendPainter::paintTimeAxis(const Subject& subject) {
    const QFontMetrics metrics = m_painter.fontMetrics();
    const int label = metrics.horizontalAdvance(QStringLiteral("00:00:00.000")) + 2 * margin;
    const QRect& band = m_layout.band;
    const auto step = trendTimeStep(subject.span, std::max(band.width() / label, 1));
    const auto wallAtLeft = subject.record.wallTime(m_cut.from);
    const auto sinceStep = wallAtLeft.time_since_epoch() % step;
    const QColor grid = trendGridColour(m_palette);
    for (auto wall = wallAtLeft - sinceStep + step;; wall += step) {
        const double across = std::chrono::duration<double>(wall - wallAtLeft) /
                              std::chrono::duration<double>(subject.span);
        if (across > 1)
            break;
        const int x = band.left() + static_cast<int>(std::lround(across * (band.width() - 1)));
        for (const QRect& plot : m_layout.plots)
            m_painter.fillRect(x, plot.top(), 1, plot.height(), grid);
        const QRect place(x - label / 2, band.bottom() + 1, label, metrics.height());
        m_painter.setPen(m_palette.color(QPalette::Text));
        if (place.right() < m_size.width() + margin)  // or it would be cut off
            write(place, Qt::AlignCenter, trendTimeText(wall, step < std::chrono::seconds(1)));
    }
}

void TrendPainter::paintCurve(const QRect& plot, const std::vector<TrendBar>& bars,
                              const TrendScale& scale, double thick, const QColor& colour) {
    m_painter.save();
    m_painter.setClipRect(plot.adjusted(0, -overEdge, 0, overEdge));
    // In the device's own pixels, on which whole rectangles are quickly filled.
    m_painter.scale(1 / m_pixels, 1 / m_pixels);
    const int left = toPixels(plot.left());
    const int thickness = std::max(toPixels(thick), 1), width = std::max(toPixels(1), 1);
    const double height = (plot.height() - 1) * m_pixels;
    const double bottom = (plot.bottom() + 0.5) * m_pixels - thickness / 2.0;
    const auto y = [&](double value) {
        return static_cast<int>(
            std::lround(bottom - std::clamp(scale.place(value), -1.0, 2.0) * height));
    };
    QVector<QRect> columns;
    columns.reserve(static_cast<qsizetype>(bars.size()));
    for (const TrendBar& bar : bars) {
        const int top = y(bar.high);
        columns.append(QRect(left + bar.column, top, width, y(bar.low) - top + thickness));
    }
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(colour);
    m_painter.drawRects(inRows(columns));
    m_painter.restore();
}

void TrendPainter::paintBand() {
    const std::vector<TrendStates> states = trendStates(*m_pieces, m_cut.count);
    const QRect& band = m_layout.band;
    const QFontMetrics metrics = m_painter.fontMetrics();
    m_painter.setPen(m_palette.color(QPalette::Text));
    for (std::size_t lane = 0; lane < trendLanes.size(); ++lane)
        write(QRect(0, band.top() + static_cast<int>(lane) * m_layout.laneHeight,
                    band.left() - margin / 2, metrics.height()),
              Qt::AlignRight | Qt::AlignVCenter,
              QCoreApplication::translate("Trend", trendLanes[lane].name));
    m_painter.save();
    m_painter.scale(1 / m_pixels, 1 / m_pixels);
    const int left = toPixels(band.left()), high = toPixels(m_layout.laneHeight - 3);
    for (std::size_t lane = 0; lane < trendLanes.size(); ++lane) {
        const int top = toPixels(band.top() + static_cast<int>(lane) * m_layout.laneHeight + 1);
        for (int begin = 0, end = 0; begin < m_cut.count; begin = end) {
            const auto stateAt = [&](int column) -> unsigned {
                return states[static_cast<std::size_t>(column)] & trendLanes[lane].states;
            };
            while (end < m_cut.count && stateAt(end) == stateAt(begin))
                ++end;
            if (const auto look = trendStateLook(stateAt(begin), m_palette))
                m_painter.fillRect(left + begin, top + (look->thin ? high / 2 : 0), end - begin,
                                   look->thin ? std::max(high / 8, 1) : high, look->colour);
        }
    }
    m_painter.restore();
}

void TrendPainter::paintReadOut(const Subject& subject) {
    const QPoint pointer = *subject.pointer;
    const QRect& band = m_layout.band;
    if (pointer.x() > band.right())
        return;
    const auto column = static_cast<long>((pointer.x() - band.left()) * m_pixels);
    const TrendTime time = m_cut.from + column * m_cut.column + m_cut.column / 2;
    const QStringList lines = trendReadOut(subject.record, time, m_cut.column);
    m_painter.fillRect(QRect(pointer.x(), m_layout.plots.front().top(), 1,
                             band.bottom() - m_layout.plots.front().top()),
                       m_palette.color(QPalette::Text));
    const QFontMetrics metrics = m_painter.fontMetrics();
    int width = 0;
    for (const QString& line : lines)
        width = std::max(width, metrics.horizontalAdvance(line));
    QRect box(pointer.x() + margin, m_layout.plots.front().top() + margin, width + margin,
              metrics.height() * static_cast<int>(lines.size()) + margin);
    if (box.right() > band.right())
        box.moveRight(pointer.x() - margin);
    m_painter.fillRect(box, m_palette.color(QPalette::ToolTipBase));
    m_painter.setPen(m_palette.color(QPalette::ToolTipText));
    m_painter.drawRect(box);
    m_painter.drawText(box.adjusted(margin / 2, margin / 2, 0, 0), Qt::AlignLeft | Qt::AlignTop,
                       lines.join(QLatin1Char('\n')));
}

}  // namespace zlt
