#include "panel/TrendRecord.h"

#include <algorithm>
#include <limits>

#include "platform/NumberConversion.h"

namespace zlt {
namespace {

constexpr std::uint8_t curvesKnown =
    TrendSample::positionKnown | TrendSample::encoderKnown | TrendSample::currentKnown;

/// What a series needs to be known.
std::uint8_t needs(TrendSeries series) {
    switch (series) {
        case TrendSeries::position:
            return TrendSample::positionKnown;
        case TrendSeries::encoder:
            return TrendSample::encoderKnown;
        case TrendSeries::current:
            return TrendSample::currentKnown;
        case TrendSeries::followingError:
            break;
    }
    return TrendSample::positionKnown | TrendSample::encoderKnown;
}

bool holds(std::uint8_t known, TrendSeries series) {
    return (known & needs(series)) == needs(series);
}

template <class Value>
void take(TrendSample& sample, TrendSample::Known what, Value& into, std::optional<Value> value) {
    if (!value)
        return;
    into = *value;
    sample.known = static_cast<std::uint8_t>(sample.known | what);
}

TrendSample sampleOf(const AxisReading& reading) {
    TrendSample sample;
    sample.time = reading.time;
    take(sample, TrendSample::positionKnown, sample.position, parseInteger(reading.position));
    take(sample, TrendSample::encoderKnown, sample.encoder, parseInteger(reading.encoder));
    take(sample, TrendSample::currentKnown, sample.current, parseInteger(reading.current));
    take(sample, TrendSample::statusKnown, sample.status, reading.status);
    if (reading.driverEnabled) {
        sample.known |= TrendSample::driverKnown;
        sample.driver = *reading.driverEnabled;
    }
    if (!reading.program)
        return sample;
    const AxisReading::Program& program = *reading.program;
    take(sample, TrendSample::stateKnown, sample.program, program.state);
    if (program.line && program.incremental && program.output) {
        sample.known |= TrendSample::programKnown;
        sample.line = *program.line;
        sample.incremental = *program.incremental;
        sample.output = *program.output;
    }
    return sample;
}

}  // namespace

std::optional<std::int64_t> TrendSample::value(TrendSeries series) const {
    if (!holds(known, series))
        return std::nullopt;
    switch (series) {
        case TrendSeries::position:
            return position;
        case TrendSeries::encoder:
            return encoder;
        case TrendSeries::current:
            return current;
        case TrendSeries::followingError:
            break;
    }
    return std::int64_t{position} - encoder;
}

TrendStates TrendSample::states() const {
    unsigned all = 0;
    if (knows(statusKnown))
        all |= trendMotion(status.motion()) | (status.negativeLimit() ? trendMinusLimit : 0U) |
               (status.home() ? trendHome : 0U) | (status.positiveLimit() ? trendPlusLimit : 0U);
    if (knows(stateKnown))
        all |= trendProgram(program);
    return static_cast<TrendStates>(all);
}

TrendSummary TrendSummary::of(const TrendSample& sample) {
    TrendSummary one;
    one.known = sample.known & curvesKnown;
    const auto range = [&one](TrendSeries series) -> TrendRange& {
        return one.ranges[static_cast<std::size_t>(series)];
    };
    const auto point = [](std::int64_t value) { return TrendRange{value, value, value, value}; };
    range(TrendSeries::position) = point(sample.position);
    range(TrendSeries::encoder) = point(sample.encoder);
    range(TrendSeries::followingError) = point(std::int64_t{sample.position} - sample.encoder);
    range(TrendSeries::current) = point(sample.current);
    one.states = one.lastStates = sample.states();
    return one;
}

bool TrendSummary::knows(TrendSeries series) const {
    return holds(known, series);
}

void TrendSummary::append(const TrendSummary& next) {
    for (std::size_t series = 0; series < ranges.size(); ++series) {
        TrendRange& range = ranges[series];
        const TrendRange& more = next.ranges[series];
        range.low = std::min(range.low, more.low);
        range.high = std::max(range.high, more.high);
        range.last = more.last;
    }
    states |= next.states;
    lastStates = next.lastStates;
}

TrendRecord::TrendRecord(std::size_t mostSamples, TrendTime time, WallTime began)
    : m_mostBlocks(std::max<std::size_t>(mostSamples / blockSize, 2)),
      m_time(time),
      m_began(began) {}

void TrendRecord::add(const AxisReading& reading) {
    TrendSample sample = sampleOf(reading);
    sample.device = m_device;
    sample.afterGap = m_broken;
    m_broken = false;
    if (m_blocks.empty() || m_blocks.back().count == blockSize) {
        if (m_blocks.size() == m_mostBlocks)
            m_blocks.pop_front();
        m_blocks.emplace_back();
    }
    Block& block = m_blocks.back();
    const TrendSummary summary = TrendSummary::of(sample);
    if (block.count == 0) {
        block.summary = summary;
    } else {
        block.unbroken = block.unbroken && !sample.afterGap && block.summary.known == summary.known;
        block.summary.append(summary);
    }
    block.samples[block.count++] = sample;
}

void TrendRecord::startDevice(const std::string& address) {
    breakOff();
    auto known = std::find(m_devices.begin(), m_devices.end(), address);
    constexpr std::size_t most = std::numeric_limits<std::uint8_t>::max();
    if (known == m_devices.end() && m_devices.size() <= most)
        known = m_devices.insert(known, address);
    // There are a hundred addresses; whoever gets past 255 typed texts is not told apart.
    m_device = known == m_devices.end() ? 0 : static_cast<std::uint8_t>(known - m_devices.begin());
}

std::size_t TrendRecord::size() const {
    return m_blocks.empty() ? 0 : (m_blocks.size() - 1) * blockSize + m_blocks.back().count;
}

std::size_t TrendRecord::firstFrom(TrendTime time) const {
    const auto block = std::lower_bound(
        m_blocks.begin(), m_blocks.end(), time,
        [](const Block& each, TrendTime at) { return each.samples[each.count - 1].time < at; });
    if (block == m_blocks.end())
        return size();
    const auto end = block->samples.begin() + static_cast<std::ptrdiff_t>(block->count);
    const auto sample =
        std::lower_bound(block->samples.begin(), end, time,
                         [](const TrendSample& each, TrendTime at) { return each.time < at; });
    return static_cast<std::size_t>(block - m_blocks.begin()) * blockSize +
           static_cast<std::size_t>(sample - block->samples.begin());
}

const TrendSummary* TrendRecord::summaryFrom(std::size_t index) const {
    if (index % blockSize != 0 || index / blockSize >= m_blocks.size())
        return nullptr;
    const Block& block = m_blocks[index / blockSize];
    return block.count == blockSize && block.unbroken ? &block.summary : nullptr;
}

}  // namespace zlt
