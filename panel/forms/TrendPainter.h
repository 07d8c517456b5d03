#pragma once

#include <QFont>
#include <QHash>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QStaticText>
#include <array>
#include <optional>

#include "panel/TrendScale.h"
#include "panel/TrendView.h"

namespace zlt {

/// The plots of the trend, from the top.
inline constexpr std::size_t trendPlots = 3;

/// Where the parts of the trend stand.
struct TrendLayout {
    std::array<QRect, trendPlots> plots;
    QRect band;
    int laneHeight = 0;

    /// For a picture of that size.
    TrendLayout(const QSize& size, const QFontMetrics& metrics);

    /// The plot at a place; nothing beside them.
    [[nodiscard]] std::optional<std::size_t> plotAt(const QPoint& place) const;
    /// How far from the left edge to the right one a place is, 0 to 1.
    [[nodiscard]] double acrossAt(int x) const;
};

/// What is kept from one frame of the trend to the next.
struct TrendMemory {
    TrendWindow window;
    QHash<QString, QStaticText> texts;  ///< laid out, which is most of what a text costs
};

/// Paints the trend: curves by the least and the greatest value of each pixel column, the band of
/// states below, and what is under the pointer.
class TrendPainter {
 public:
    struct Subject {
        const TrendRecord& record;
        TrendTime right;
        TrendView::Span span;
        bool autoscale;
        /// In the place of the pointer, the values are read out.
        std::optional<QPoint> pointer = std::nullopt;
    };

    /// `painter` is in the coordinates of `size`; `pixels` of the device are one of them.
    TrendPainter(QPainter& painter, const QSize& size, double pixels, const QPalette& palette,
                 TrendMemory& memory);

    /// `scales` are those of the plots: they are used, or set where the subject says autoscale.
    void paint(const Subject& subject, std::array<TrendScale, trendPlots>& scales);

 private:
    void paintPlot(std::size_t plot, const Subject& subject, TrendScale& scale);
    void paintValueAxis(const QRect& plot, const TrendScale& scale);
    void paintTimeAxis(const Subject& subject);
    void paintCurve(const QRect& plot, const std::vector<TrendBar>& bars, const TrendScale& scale,
                    double thick, const QColor& colour);
    void paintBand();
    void paintReadOut(const Subject& subject);
    /// Writes one line, within `place` as aligned.
    void write(const QRect& place, Qt::Alignment alignment, const QString& text);
    [[nodiscard]] int toPixels(double length) const;

    QPainter& m_painter;
    QSize m_size;
    double m_pixels;
    QPalette m_palette;
    TrendLayout m_layout;
    TrendCut m_cut;
    TrendMemory& m_memory;
    const std::vector<TrendPiece>* m_pieces = nullptr;
};

}  // namespace zlt
