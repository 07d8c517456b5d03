#include "terminal/BusListing.h"

#include "link/BusText.h"

namespace zlt {

void BusListing::setFilter(const BusFilter& filter) {
    m_filter = filter;
    m_taken = 0;
}

void BusListing::setPaused(bool paused) {
    if (!paused)
        m_paused.reset();
    else if (!m_paused)
        m_paused = m_log;
}

std::vector<BusRecord> BusListing::takeNew() {
    const BusLog& log = m_paused ? *m_paused : m_log;
    std::vector<BusRecord> fitting;
    log.visitAfter(m_taken, m_filter.routine, [&](const BusRecord& record) {
        if (m_filter.text.empty() || holdsText(record, m_filter.text))
            fitting.push_back(record);
    });
    m_taken = log.newest();
    if (fitting.size() > longest)
        fitting.erase(fitting.begin(), fitting.end() - longest);
    return fitting;
}

}  // namespace zlt
