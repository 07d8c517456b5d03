#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "link/BusLog.h"

namespace zlt {

/// What of the log is to be listed.
struct BusFilter {
    bool routine = false;  ///< the poll's answered exchanges, and its probes, too
    std::string text;      ///< to be held by one of the columns, UTF-8; empty for all
};

/// Takes what is new in the log, piece by piece, for a list of the last ones that fit a filter.
class BusListing {
 public:
    /// A list has no more rows than this.
    static constexpr std::size_t longest = BusLog::recordsKept;

    /// `log` outlives the listing.
    explicit BusListing(const BusLog& log) : m_log(log) {}

    /// From here on the list is another one, from the oldest that is kept on.
    void setFilter(const BusFilter& filter);

    /// A pause holds the log as it is at its beginning: another filter still shows that. What comes
    /// meanwhile is listed after it, as far as it is kept.
    void setPaused(bool paused);
    [[nodiscard]] bool paused() const { return m_paused.has_value(); }

    /// What fits and has not been taken yet, in order; of very many the last `longest`.
    std::vector<BusRecord> takeNew();

 private:
    const BusLog& m_log;
    std::optional<BusLog> m_paused;
    BusFilter m_filter;
    std::uint64_t m_taken = 0;  ///< the number of the last one looked at
};

}  // namespace zlt
