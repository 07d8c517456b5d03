#pragma once

#include <chrono>
#include <vector>

#include "panel/TrendRecord.h"

namespace zlt {

/// A stretch of time cut into columns of one width, one for each pixel.
struct TrendCut {
    TrendTime from;
    std::chrono::nanoseconds column{1};  ///< at least 1 ns
    int count = 0;
};

/// The samples of one column, as far as nothing comes between them.
struct TrendPiece {
    long column;  ///< may lie outside the cut, for the first and the last
    bool joined;  ///< to the piece before it: no gap, and the same curves known
    TrendSummary all;
};

/// All pieces of a cut, with the sample before it and the one after it, to which lines lead.
std::vector<TrendPiece> trendPieces(const TrendRecord& record, const TrendCut& cut);

/// The pieces of one cut after the other: where a cut is the one before it, moved on by whole
/// columns, only what has come since is looked at.
class TrendWindow {
 public:
    /// Always the same record. What trendPieces() returns, less what the record has dropped since.
    const std::vector<TrendPiece>& pieces(const TrendRecord& record, const TrendCut& cut);

 private:
    bool moveTo(const TrendCut& cut);

    TrendCut m_cut;
    std::vector<TrendPiece> m_pieces;
};

/// The part of a curve that is in one column.
struct TrendBar {
    int column;
    double low, high;
};

/// The curve of a series: bars that touch where it is whole. A gap has no bar, and no bar goes
/// across one.
std::vector<TrendBar> trendBars(const std::vector<TrendPiece>& pieces, TrendSeries series,
                                int count);

/// What the band shows in each column: all states that held in it, 0 in a gap.
std::vector<TrendStates> trendStates(const std::vector<TrendPiece>& pieces, int count);

}  // namespace zlt
