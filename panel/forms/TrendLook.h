#pragma once

#include <QColor>
#include <QPalette>
#include <QStringList>
#include <array>
#include <optional>

#include "panel/TrendRecord.h"

namespace zlt {

/// A colour on a light ground and on a dark one.
struct TrendColour {
    QRgb onLight, onDark;
};

/// How a curve is shown, and in which of the plots.
struct TrendCurveLook {
    TrendSeries series;
    std::size_t plot;
    const char* name;  ///< to be translated, as all names here
    TrendColour colour;
    double thickness = 1.5;
};
/// In the order in which they are painted, one over the other.
extern const std::array<TrendCurveLook, trendSeriesCount> trendCurves;

/// A line of the band: the states that it shows.
struct TrendLane {
    const char* name;
    TrendStates states;
};
extern const std::array<TrendLane, 5> trendLanes;

struct TrendStateLook {
    QColor colour;
    bool thin;  ///< nothing that stands out: at rest
};

QColor trendColour(const TrendColour& colour, const QPalette& palette);
QColor trendGridColour(const QPalette& palette);
/// Of the states of one lane that held at a time the gravest; nothing for none.
std::optional<TrendStateLook> trendStateLook(unsigned states, const QPalette& palette);

/// The time of day, "14:03:22" or "14:03:22.143".
QString trendTimeText(TrendRecord::WallTime time, bool withMilliseconds);

/// Date and time of day as a file's name can have them, "2026-11-22 14-03-22".
QString trendDateText(TrendRecord::WallTime time);

/// What was read at a time, a line each: of the pass next to it. In a gap that is wider than `near`
/// it says so.
QStringList trendReadOut(const TrendRecord& record, TrendTime time, std::chrono::nanoseconds near);

}  // namespace zlt
