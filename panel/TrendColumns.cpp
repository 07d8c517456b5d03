#include "panel/TrendColumns.h"

#include <algorithm>

namespace zlt {
namespace {

long columnOf(const TrendCut& cut, TrendTime time) {
    const auto apart = (time - cut.from).count();
    const auto width = cut.column.count();
    return static_cast<long>(apart >= 0 ? apart / width : -((width - 1 - apart) / width));
}

/// Adds up the bars of one curve.
class Curve {
 public:
    explicit Curve(int count) : m_count(count) {}

    /// `joined`: it touches the bar that was last added, and is one with it in the same column.
    void add(long column, double low, double high, bool joined) {
        if (column < 0 || column >= m_count)
            return;
        if (joined && !bars.empty() && bars.back().column == column) {
            bars.back().low = std::min(bars.back().low, low);
            bars.back().high = std::max(bars.back().high, high);
        } else {
            bars.push_back({static_cast<int>(column), low, high});
        }
    }

    /// The straight line from the middle of one column to that of another.
    void lead(long from, double first, long to, double last) {
        const double slope = (last - first) / static_cast<double>(to - from);
        const auto at = [&](double column) {
            return first + slope * (column - static_cast<double>(from));
        };
        for (long column = std::max(from, 0L); column <= std::min<long>(to, m_count - 1);
             ++column) {
            const double left = at(std::max(static_cast<double>(column) - 0.5, double(from)));
            const double right = at(std::min(static_cast<double>(column) + 0.5, double(to)));
            add(column, std::min(left, right), std::max(left, right), true);
        }
    }

    std::vector<TrendBar> bars;

 private:
    int m_count;
};

/// Adds the pieces of the samples from `index` on, the first one after the cut included.
void addPieces(std::vector<TrendPiece>& pieces, const TrendRecord& record, const TrendCut& cut,
               std::size_t index) {
    const std::size_t size = record.size();
    long column = 0;
    TrendTime columnEnd = TrendTime::min();  // a division a column, not a sample
    while (index < size) {
        const TrendSample& sample = record.at(index);
        if (sample.time >= columnEnd) {
            column = columnOf(cut, sample.time);
            columnEnd = cut.from + (column + 1) * cut.column;
        }
        const TrendSummary* block = record.summaryFrom(index);
        if (block && record.at(index + TrendRecord::blockSize - 1).time >= columnEnd)
            block = nullptr;
        const TrendSummary next = block ? *block : TrendSummary::of(sample);
        const bool joined =
            !pieces.empty() && !sample.afterGap && pieces.back().all.known == next.known;
        if (joined && pieces.back().column == column)
            pieces.back().all.append(next);
        else
            pieces.push_back({column, joined, next});
        if (column >= cut.count)
            break;
        index += block ? TrendRecord::blockSize : 1;
    }
}

}  // namespace

std::vector<TrendPiece> trendPieces(const TrendRecord& record, const TrendCut& cut) {
    std::vector<TrendPiece> pieces;
    pieces.reserve(static_cast<std::size_t>(cut.count) + 2);
    const std::size_t first = record.firstFrom(cut.from);
    addPieces(pieces, record, cut, first > 0 ? first - 1 : first);
    return pieces;
}

const std::vector<TrendPiece>& TrendWindow::pieces(const TrendRecord& record, const TrendCut& cut) {
    if (!moveTo(cut)) {
        m_cut = cut;
        m_pieces = trendPieces(record, cut);
        return m_pieces;
    }
    // The last column was not full yet, and passes may have come for it.
    const long last = m_pieces.back().column;
    while (!m_pieces.empty() && m_pieces.back().column == last)
        m_pieces.pop_back();
    addPieces(m_pieces, record, cut, record.firstFrom(cut.from + last * cut.column));
    return m_pieces;
}

/// False when nothing of what is there can be used.
bool TrendWindow::moveTo(const TrendCut& cut) {
    const auto moved = cut.from - m_cut.from;
    if (cut.column != m_cut.column || cut.count != m_cut.count || m_pieces.empty() ||
        moved.count() < 0 || moved % cut.column != std::chrono::nanoseconds(0))
        return false;
    const auto columns = static_cast<long>(moved / cut.column);
    for (TrendPiece& piece : m_pieces)
        piece.column -= columns;
    const auto inside = std::find_if(m_pieces.begin(), m_pieces.end(),
                                     [](const TrendPiece& piece) { return piece.column >= 0; });
    if (inside == m_pieces.end())
        return false;
    if (inside != m_pieces.begin())
        m_pieces.erase(m_pieces.begin(), inside - 1);
    m_cut = cut;
    return true;
}

std::vector<TrendBar> trendBars(const std::vector<TrendPiece>& pieces, TrendSeries series,
                                int count) {
    Curve curve(count);
    curve.bars.reserve(static_cast<std::size_t>(count));
    const TrendPiece* before = nullptr;
    for (const TrendPiece& piece : pieces) {
        if (!piece.all.knows(series)) {
            before = nullptr;
            continue;
        }
        const auto rangeOf = [series](const TrendPiece& of) -> const TrendRange& {
            return of.all.ranges[static_cast<std::size_t>(series)];
        };
        const TrendRange& range = rangeOf(piece);
        const bool joined = piece.joined && before;
        if (joined)
            curve.lead(before->column, static_cast<double>(rangeOf(*before).last), piece.column,
                       static_cast<double>(range.first));
        curve.add(piece.column, static_cast<double>(range.low), static_cast<double>(range.high),
                  joined);
        before = &piece;
    }
    return std::move(curve.bars);
}

std::vector<TrendStates> trendStates(const std::vector<TrendPiece>& pieces, int count) {
    std::vector<TrendStates> states(static_cast<std::size_t>(count), 0);
    const TrendPiece* before = nullptr;
    for (const TrendPiece& piece : pieces) {
        if (before && piece.joined)
            for (long column = std::max(before->column + 1, 0L);
                 column < std::min<long>(piece.column, count); ++column)
                states[static_cast<std::size_t>(column)] = before->all.lastStates;
        if (piece.column >= 0 && piece.column < count)
            states[static_cast<std::size_t>(piece.column)] |= piece.all.states;
        before = &piece;
    }
    return states;
}

}  // namespace zlt
