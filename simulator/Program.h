#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/Time.h"

namespace zlt::sim {

/// The memory for standalone programs: lines of text. A line that reads "PRG 1" begins the part of
/// thread 1; what stands before it is the part of thread 0.
class ProgramStore {
 public:
    static constexpr std::size_t maximumLines = 1020;
    static constexpr std::size_t maximumLineLength = 200;

    /// Replaces a line or appends one after the last; false when there would be a gap, the line
    /// is too long or the memory is full.
    bool write(std::size_t line, std::string_view text);
    void clear() { m_lines.clear(); }
    [[nodiscard]] const std::vector<std::string>& lines() const { return m_lines; }
    /// The lines of a thread: first, and one past the last.
    [[nodiscard]] std::pair<std::size_t, std::size_t> part(int thread) const;

 private:
    std::vector<std::string> m_lines;
};

/// As "SASTAT" tells it.
enum class ThreadState { idle = 0, running = 1, paused = 2, errored = 4 };

/// One thread walks through its lines, one each 20 ms, and begins again at its first line after
/// the last. At a line that reads "END" it stops. What the lines say otherwise is not acted on.
class ProgramThread {
 public:
    /// What "SR=" asks for: 0 stop, 1 run, 2 pause, 3 continue; false where it does not apply.
    /// Running a thread without lines puts it in error.
    bool command(int code, Time now, std::pair<std::size_t, std::size_t> part);
    void advance(Time now, const ProgramStore& store, std::pair<std::size_t, std::size_t> part);
    void clearError();
    [[nodiscard]] ThreadState state() const { return m_state; }
    [[nodiscard]] std::size_t line() const { return m_line; }

 private:
    ThreadState m_state = ThreadState::idle;
    std::size_t m_line = 0;
    Time m_due{0};
};

/// Both threads and the memory they run from.
class Program {
 public:
    bool command(int thread, int code, Time now);
    /// The same for the program as a whole: every thread that has lines, or thread 0 if none has.
    bool commandAll(int code, Time now);
    void advance(Time now);
    void powerUp();
    void clearErrors();
    /// Whether a thread runs or is paused within its lines.
    [[nodiscard]] bool active() const;
    [[nodiscard]] const ProgramThread& thread(int number) const;
    /// The memory is not to be changed while a thread is active.
    [[nodiscard]] ProgramStore& store() { return m_store; }

 private:
    ProgramStore m_store;
    std::array<ProgramThread, 2> m_threads;
};

}  // namespace zlt::sim
