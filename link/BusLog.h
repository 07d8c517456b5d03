#pragma once

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <vector>

#include "platform/Moment.h"

namespace zlt {

/// The front of a text of the wire, in a room of fixed size, and how long the whole of it was.
template <std::size_t room>
class KeptBytes {
 public:
    void set(std::string_view bytes) {
        constexpr std::size_t most = std::numeric_limits<std::uint32_t>::max();
        m_length = static_cast<std::uint32_t>(std::min(bytes.size(), most));
        std::copy_n(bytes.data(), kept(), m_bytes.data());
    }
    void add(char byte) {
        if (m_length < room)
            m_bytes[m_length] = byte;
        ++m_length;
    }
    [[nodiscard]] std::string_view bytes() const { return {m_bytes.data(), kept()}; }
    /// How many more there were.
    [[nodiscard]] std::size_t leftOut() const { return m_length - kept(); }

 private:
    [[nodiscard]] std::size_t kept() const { return std::min<std::size_t>(m_length, room); }

    std::uint32_t m_length = 0;
    std::array<char, room> m_bytes{};
};

/// What had an exchange made.
enum class Asker : std::uint8_t {
    screen,  ///< an act of the operator's, or a screen as it opens
    poll,    ///< the poll and the demo in it, or a screen that reads the same over and over
    probe,   ///< the poll while the controller is silent
};

enum class Outcome : std::uint8_t {
    answered,
    noneAwaited,  ///< a broadcast, which brings no reply
    timedOut,
    portLost,
    dropped,  ///< no exchange: what had come late, and was not looked at
};

/// One exchange as it was on the bus. Texts are bytes of the wire.
struct BusRecord {
    std::uint64_t number = 0;  ///< counts all exchanges from 1
    std::chrono::system_clock::time_point begun;
    std::chrono::microseconds taken{0};  ///< to the reply's end, the settling wait included
    KeptBytes<48> command;  ///< without address and end mark; empty for a line that is read on
    KeptBytes<80> reply;    ///< as it came, end mark and all; of a failure what came of it
    KeptBytes<4> deviceId;
    KeptBytes<8> baudRate;
    std::uint8_t port = 0;
    Asker asker = Asker::screen;
    Outcome outcome = Outcome::answered;
};

/// What comes again and again and went well: a pass of the poll, or a probe, however it ended.
bool isRoutine(const BusRecord& record);

/// The exchanges of all screens of a run. A poll at full speed makes a thousand in a second, so
/// what is routine has a room of its own: it does not push out what the operator did.
class BusLog {
 public:
    /// So many of the routine ones are kept, and so many of all others.
    static constexpr std::size_t recordsKept = 10'000;

    explicit BusLog(std::function<Moment()> clock = &Moment::now);

    [[nodiscard]] Moment now() const { return m_clock(); }
    /// Adds one, which gets the next number.
    void add(BusRecord record);
    /// The number of the last one; 0 for none.
    [[nodiscard]] std::uint64_t newest() const { return m_newest; }
    [[nodiscard]] Asker asker() const { return m_asker; }

    using Visit = std::function<void(const BusRecord&)>;
    /// Visits what is kept of those after `number`, in order, the routine ones only if asked for.
    void visitAfter(std::uint64_t number, bool withRoutine, const Visit& visit) const;
    /// The last `count` of them, in order.
    [[nodiscard]] std::vector<BusRecord> last(std::size_t count, bool withRoutine) const;

 private:
    friend class AskedBy;

    class Ring {
     public:
        void add(const BusRecord& record);
        [[nodiscard]] std::size_t size() const { return m_records.size(); }
        [[nodiscard]] const BusRecord& operator[](std::size_t index) const {
            return m_records[(m_oldest + index) % m_records.size()];
        }
        /// The index of the first one after `number`.
        [[nodiscard]] std::size_t indexAfter(std::uint64_t number) const;

     private:
        std::vector<BusRecord> m_records;
        std::size_t m_oldest = 0;
    };

    std::function<Moment()> m_clock;
    std::uint64_t m_newest = 0;
    Asker m_asker = Asker::screen;
    Ring m_routine, m_others;
};

/// Says who asks for the exchanges that are made while it lives.
class AskedBy {
 public:
    AskedBy(BusLog& log, Asker asker) : m_log(log), m_before(log.m_asker) { log.m_asker = asker; }
    ~AskedBy() { m_log.m_asker = m_before; }
    AskedBy(const AskedBy&) = delete;
    AskedBy& operator=(const AskedBy&) = delete;

 private:
    BusLog& m_log;
    Asker m_before;
};

}  // namespace zlt
