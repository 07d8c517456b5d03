#include "simulator/Program.h"

#include <algorithm>
#include <utility>

namespace zlt::sim {
namespace {

constexpr Time lineTime = std::chrono::milliseconds(20);

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace

bool ProgramStore::write(std::size_t line, std::string_view text) {
    if (line > m_lines.size() || line >= maximumLines || text.size() > maximumLineLength)
        return false;
    if (line == m_lines.size())
        m_lines.emplace_back(text);
    else
        m_lines[line] = text;
    return true;
}

std::pair<std::size_t, std::size_t> ProgramStore::part(int thread) const {
    const auto mark = std::find_if(m_lines.begin(), m_lines.end(),
                                   [](const auto& line) { return trimmed(line) == "PRG 1"; });
    const auto split = static_cast<std::size_t>(mark - m_lines.begin());
    return thread == 0 ? std::pair{std::size_t{0}, split} : std::pair{split, m_lines.size()};
}

bool ProgramThread::command(int code, Time now, std::pair<std::size_t, std::size_t> part) {
    switch (code) {
        case 0:
            m_state = ThreadState::idle;
            m_line = part.first;
            return true;
        case 1:
            if (m_state == ThreadState::running)
                return true;
            m_line = part.first;
            m_due = now + lineTime;
            m_state = part.first == part.second ? ThreadState::errored : ThreadState::running;
            return true;
        case 2:
            if (m_state != ThreadState::running)
                return false;
            m_state = ThreadState::paused;
            return true;
        case 3:
            if (m_state != ThreadState::paused)
                return false;
            m_state = ThreadState::running;
            m_due = now + lineTime;
            return true;
        default:
            return false;
    }
}

void ProgramThread::advance(Time now, const ProgramStore& store,
                            std::pair<std::size_t, std::size_t> part) {
    const auto count = static_cast<Time::rep>(part.second - part.first);
    if (m_state == ThreadState::running && count > 0 && now - m_due > lineTime * count) {
        // More than a whole round has passed since the last call: the rounds that change nothing
        // are left out but for one, which finds an "END" on the way.
        m_due = now - (now - m_due) % (lineTime * count) - lineTime * count;
    }
    while (m_state == ThreadState::running && m_due <= now) {
        m_due += lineTime;
        if (trimmed(store.lines()[m_line]) == "END")
            m_state = ThreadState::idle;
        else if (++m_line >= part.second)
            m_line = part.first;
    }
}

void ProgramThread::clearError() {
    if (m_state == ThreadState::errored)
        m_state = ThreadState::idle;
}

bool Program::command(int thread, int code, Time now) {
    return m_threads.at(static_cast<std::size_t>(thread)).command(code, now, m_store.part(thread));
}

bool Program::commandAll(int code, Time now) {
    const auto [first, last] = m_store.part(1);
    if (code == 1) {
        const auto [begin, end] = m_store.part(0);
        const bool one = first != last && command(1, code, now);
        return (begin == end && one) || command(0, code, now);
    }
    const bool zero = command(0, code, now);
    return command(1, code, now) || zero;
}

void Program::advance(Time now) {
    for (int i = 0; i < 2; ++i)
        m_threads[static_cast<std::size_t>(i)].advance(now, m_store, m_store.part(i));
}

void Program::powerUp() {
    m_threads = {};
    m_threads[1].command(0, Time{0}, m_store.part(1));
}

void Program::clearErrors() {
    for (auto& thread : m_threads)
        thread.clearError();
}

bool Program::active() const {
    return std::any_of(m_threads.begin(), m_threads.end(), [](const auto& t) {
        return t.state() == ThreadState::running || t.state() == ThreadState::paused;
    });
}

const ProgramThread& Program::thread(int number) const {
    return m_threads.at(static_cast<std::size_t>(number));
}

}  // namespace zlt::sim
