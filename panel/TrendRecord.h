#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "panel/AxisReading.h"

namespace zlt {

using TrendTime = std::chrono::steady_clock::time_point;

/// The values that are drawn as curves.
enum class TrendSeries : std::uint8_t { position, encoder, followingError, current };
inline constexpr std::size_t trendSeriesCount = 4;

/// What the band shows, a bit each: several may hold at once, or one after the other in a stretch
/// of time.
using TrendStates = std::uint16_t;
inline constexpr TrendStates trendMotion(MotionState motion) {
    return static_cast<TrendStates>(1U << static_cast<unsigned>(motion));
}
inline constexpr TrendStates trendMinusLimit = 1U << 6, trendHome = 1U << 7,
                             trendPlusLimit = 1U << 8;
inline constexpr TrendStates trendProgram(ProgramState state) {
    return static_cast<TrendStates>(1U << (9 + static_cast<unsigned>(state)));
}

/// One pass of the poll, packed: an hour of them is kept.
struct TrendSample {
    /// What of it is known, a bit each.
    enum Known : std::uint8_t {
        positionKnown = 1,
        encoderKnown = 2,
        currentKnown = 4,
        statusKnown = 8,
        driverKnown = 16,
        programKnown = 32,
        stateKnown = 64
    };

    TrendTime time;
    std::int32_t position = 0, encoder = 0, current = 0, line = 0;
    StatusWord status{0};
    ProgramState program = ProgramState::idle;
    std::uint8_t known = 0;
    std::uint8_t device = 0;  ///< see TrendRecord::deviceOf()
    bool afterGap : 1 = false;
    bool driver : 1 = false;
    bool incremental : 1 = false;
    bool output : 1 = false;

    [[nodiscard]] bool knows(Known what) const { return (known & what) != 0; }
    /// Nothing for a reply that was no number.
    [[nodiscard]] std::optional<std::int64_t> value(TrendSeries series) const;
    [[nodiscard]] TrendStates states() const;
};

/// Least and greatest, first and last of some samples in a row.
struct TrendRange {
    std::int64_t low = 0, high = 0, first = 0, last = 0;
};

/// Samples in a row, without a gap between, that know the same curves.
struct TrendSummary {
    std::array<TrendRange, trendSeriesCount> ranges{};
    std::uint8_t known = 0;  ///< of the curves alone
    TrendStates states = 0;  ///< all that there were
    TrendStates lastStates = 0;

    static TrendSummary of(const TrendSample& sample);
    [[nodiscard]] bool knows(TrendSeries series) const;
    /// Takes those in that come next.
    void append(const TrendSummary& next);
};

/// What the poll has read, the oldest dropped when there are too many.
class TrendRecord {
 public:
    /// An hour at 109 passes a second; the poll makes a hundred at the most. Some 15 MB.
    static constexpr std::size_t anHour = 6UL * 65536;
    /// So many are also kept as one summary.
    static constexpr std::size_t blockSize = 32;

    using WallTime = std::chrono::system_clock::time_point;

    /// `began` is what the clock on the wall shows at `time`, for wallTime().
    explicit TrendRecord(std::size_t mostSamples = anHour,
                         TrendTime time = std::chrono::steady_clock::now(),
                         WallTime began = std::chrono::system_clock::now());

    /// Takes in one whole pass, its time included: not before the last one's.
    void add(const AxisReading& reading);
    /// The controller was silent or not asked: what comes next is not connected to what was.
    void breakOff() { m_broken = true; }
    /// Another device is read from now on; its address (Latin-1).
    void startDevice(const std::string& address);

    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] bool empty() const { return m_blocks.empty(); }
    /// From 0, the oldest.
    [[nodiscard]] const TrendSample& at(std::size_t index) const {
        return m_blocks[index / blockSize].samples[index % blockSize];
    }
    /// The first sample at `time` or later; size() when there is none.
    [[nodiscard]] std::size_t firstFrom(TrendTime time) const;
    /// The summary of blockSize samples from `index` on; null where there is none.
    [[nodiscard]] const TrendSummary* summaryFrom(std::size_t index) const;

    [[nodiscard]] const std::string& deviceOf(const TrendSample& sample) const {
        return m_devices[sample.device];
    }
    /// Since the beginning of the record, in seconds.
    [[nodiscard]] double seconds(TrendTime time) const {
        return std::chrono::duration<double>(time - m_time).count();
    }
    [[nodiscard]] WallTime wallTime(TrendTime time) const {
        return m_began + std::chrono::duration_cast<WallTime::duration>(time - m_time);
    }
    [[nodiscard]] WallTime began() const { return m_began; }

 private:
    struct Block {
        std::array<TrendSample, blockSize> samples;
        std::size_t count = 0;
        TrendSummary summary;
        bool unbroken = true;  ///< nothing in it that a summary would join across
    };

    std::deque<Block> m_blocks;
    std::size_t m_mostBlocks;
    std::vector<std::string> m_devices{std::string()};
    std::uint8_t m_device = 0;
    bool m_broken = true;
    TrendTime m_time;
    WallTime m_began;
};

}  // namespace zlt
