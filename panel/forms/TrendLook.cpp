#include "panel/forms/TrendLook.h"

#include <QCoreApplication>
#include <QDateTime>
#include <cmath>

#include "widgets/WireText.h"

namespace zlt {
namespace {

/// Marks a text for translation where it stands in a table.
#define IN_TREND(text) QT_TRANSLATE_NOOP("Trend", text)

constexpr TrendColour blue{qRgb(0x15, 0x65, 0xc0), qRgb(0x64, 0xb5, 0xf6)};
constexpr TrendColour paleBlue{qRgb(0x7f, 0xb0, 0xe6), qRgb(0x35, 0x6a, 0x9c)};
constexpr TrendColour red{qRgb(0xc6, 0x28, 0x28), qRgb(0xef, 0x53, 0x50)};
constexpr TrendColour amber{qRgb(0xe6, 0x9a, 0x00), qRgb(0xff, 0xca, 0x28)};

struct StateRow {
    unsigned states;
    TrendColour colour;
};
/// The gravest first.
constexpr std::array<StateRow, 4> stateColours{
    {{trendMotion(MotionState::negativeLimitError) | trendMotion(MotionState::positiveLimitError) |
          trendMinusLimit | trendPlusLimit | trendProgram(ProgramState::errored),
      red},
     {trendProgram(ProgramState::paused), amber},
     {trendMotion(MotionState::moving) | trendHome | trendProgram(ProgramState::running), blue},
     {trendMotion(MotionState::accelerating) | trendMotion(MotionState::decelerating), paleBlue}}};

QDateTime onClock(TrendRecord::WallTime time) {
    return QDateTime::fromMSecsSinceEpoch(
        std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count());
}

QString translated(const char* text) {
    return QCoreApplication::translate("Trend", text);
}

/// The pass next to a time, the one before it in a gap's first half and the other in its second.
const TrendSample* nextTo(const TrendRecord& record, TrendTime time,
                          std::chrono::nanoseconds near) {
    const std::size_t after = record.firstFrom(time);
    const TrendSample* right = after < record.size() ? &record.at(after) : nullptr;
    const TrendSample* left = after > 0 ? &record.at(after - 1) : nullptr;
    const bool closer = left && (!right || time - left->time < right->time - time);
    const TrendSample* nearest = closer ? left : right;
    const bool inGap = !left || !right || right->afterGap;
    if (nearest && inGap && std::chrono::abs(nearest->time - time) > near)
        return nullptr;
    return nearest;
}

QString stateWords(const TrendSample& sample) {
    QStringList words;
    if (sample.knows(TrendSample::statusKnown)) {
        words += shownText(shownState(sample.status.motion()).words);
        if (sample.status.negativeLimit())
            words += translated("-Lim");
        if (sample.status.home())
            words += translated("Home");
        if (sample.status.positiveLimit())
            words += translated("+Lim");
    }
    return words.join(QStringLiteral(", "));
}

/// So much of the text's colour over the ground's. No transparency: Qt has threads of its own blend
/// even a line of one pixel, which takes longer than all the rest of a frame.
QColor faintText(const QPalette& palette, double share) {
    const QColor text = palette.color(QPalette::Text), ground = palette.color(QPalette::Base);
    const auto mixed = [share](int of, int with) {
        return static_cast<int>(std::lround(of * share + with * (1 - share)));
    };
    return {mixed(text.red(), ground.red()), mixed(text.green(), ground.green()),
            mixed(text.blue(), ground.blue())};
}

}  // namespace

const std::array<TrendCurveLook, trendSeriesCount> trendCurves{
    {{TrendSeries::position, 0, IN_TREND("Position"), blue, 4},
     {TrendSeries::encoder,
      0,
      IN_TREND("Encoder"),
      {qRgb(0xe6, 0x51, 0x00), qRgb(0xff, 0xb7, 0x4d)}},
     {TrendSeries::followingError,
      1,
      IN_TREND("Following error"),
      {qRgb(0x8e, 0x24, 0xaa), qRgb(0xce, 0x93, 0xd8)}},
     {TrendSeries::current,
      2,
      IN_TREND("Current, mA"),
      {qRgb(0x2e, 0x7d, 0x32), qRgb(0x81, 0xc7, 0x84)}}}};

const std::array<TrendLane, 5> trendLanes{
    {{IN_TREND("Status"), (1U << 6) - 1},
     {IN_TREND("-Lim"), trendMinusLimit},
     {IN_TREND("Home"), trendHome},
     {IN_TREND("+Lim"), trendPlusLimit},
     {IN_TREND("Program"), static_cast<TrendStates>(0xfU << 9)}}};

QColor trendColour(const TrendColour& colour, const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128 ? colour.onDark : colour.onLight;
}

QColor trendGridColour(const QPalette& palette) {
    return faintText(palette, 0.16);
}

std::optional<TrendStateLook> trendStateLook(unsigned states, const QPalette& palette) {
    if (states == 0)
        return std::nullopt;
    for (const StateRow& row : stateColours)
        if ((states & row.states) != 0)
            return TrendStateLook{trendColour(row.colour, palette), false};
    return TrendStateLook{faintText(palette, 0.43), true};
}

QString trendTimeText(TrendRecord::WallTime time, bool withMilliseconds) {
    return onClock(time).toString(withMilliseconds ? QStringLiteral("HH:mm:ss.zzz")
                                                   : QStringLiteral("HH:mm:ss"));
}

QString trendDateText(TrendRecord::WallTime time) {
    return onClock(time).toString(QStringLiteral("yyyy-MM-dd HH-mm-ss"));
}

QStringList trendReadOut(const TrendRecord& record, TrendTime time, std::chrono::nanoseconds near) {
    const TrendSample* sample = nextTo(record, time, near);
    if (!sample)
        return {trendTimeText(record.wallTime(time), true), translated("no values")};
    QStringList lines{trendTimeText(record.wallTime(sample->time), true),
                      translated("%1 s").arg(record.seconds(sample->time), 0, 'f', 4)};
    for (const TrendCurveLook& curve : trendCurves)
        if (const auto value = sample->value(curve.series))
            lines += translated("%1: %2").arg(translated(curve.name)).arg(*value);
    lines += stateWords(*sample);
    if (sample->knows(TrendSample::stateKnown))
        lines += translated("Program: %1").arg(shownText(shownState(sample->program).words));
    lines += translated("Device %1").arg(shownText(record.deviceOf(*sample)));
    return lines;
}

}  // namespace zlt
