#include "link/BusLog.h"

#include <utility>

namespace zlt {

bool isRoutine(const BusRecord& record) {
    return record.asker == Asker::probe ||
           (record.asker == Asker::poll && record.outcome == Outcome::answered);
}

BusLog::BusLog(std::function<Moment()> clock) : m_clock(std::move(clock)) {}

void BusLog::add(BusRecord record) {
    record.number = ++m_newest;
    (isRoutine(record) ? m_routine : m_others).add(record);
}

void BusLog::visitAfter(std::uint64_t number, bool withRoutine, const Visit& visit) const {
    std::size_t routine = withRoutine ? m_routine.indexAfter(number) : m_routine.size();
    std::size_t other = m_others.indexAfter(number);
    while (routine < m_routine.size() || other < m_others.size()) {
        const bool takesOther =
            routine == m_routine.size() ||
            (other < m_others.size() && m_others[other].number < m_routine[routine].number);
        visit(takesOther ? m_others[other++] : m_routine[routine++]);
    }
}

std::vector<BusRecord> BusLog::last(std::size_t count, bool withRoutine) const {
    std::vector<BusRecord> records;
    std::size_t routine = withRoutine ? m_routine.size() : 0;
    std::size_t other = m_others.size();
    while (records.size() < count && routine + other > 0) {
        const bool takesOther = routine == 0 || (other > 0 && m_others[other - 1].number >
                                                                  m_routine[routine - 1].number);
        records.push_back(takesOther ? m_others[--other] : m_routine[--routine]);
    }
    std::reverse(records.begin(), records.end());
    return records;
}

void BusLog::Ring::add(const BusRecord& record) {
    if (m_records.size() < recordsKept) {
        if (m_records.capacity() < recordsKept)
            m_records.reserve(recordsKept);  // at once: an exchange must not wait for a move
        m_records.push_back(record);
        return;
    }
    m_records[m_oldest] = record;
    m_oldest = (m_oldest + 1) % recordsKept;
}

std::size_t BusLog::Ring::indexAfter(std::uint64_t number) const {
    std::size_t low = 0;
    std::size_t high = size();
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        if ((*this)[middle].number > number)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

}  // namespace zlt
