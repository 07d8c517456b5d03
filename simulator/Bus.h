#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/Controller.h"
#include "simulator/Misbehaviour.h"
#include "simulator/Time.h"

namespace zlt::sim {

/// Finds requests in what comes over the wire: "@", two digits, command, carriage return. Anything
/// before an "@" is dropped, a further "@" begins anew, and so does a line that is too long.
class RequestReader {
 public:
    struct Request {
        int id;
        std::string command;
    };
    static constexpr std::size_t longestRequest = 256;

    /// The request that ends with `byte`; empty when none does.
    std::optional<Request> take(char byte);
    /// Forgets what has come of a request.
    void reset();

 private:
    std::string m_text;
    bool m_started = false;
};

/// One serial line with the controllers on it: who answers, when each byte is through, and how the
/// answers are spoiled. It works on bytes and times alone.
class Bus {
 public:
    /// Told of each request (outgoing false) and each answer, with the time it counts from.
    using Listener = std::function<void(Time when, bool outgoing, std::string_view bytes)>;

    Bus(std::vector<Controller> controllers, bool paced);

    /// Bytes from the client, at the rate the client has set.
    void receive(std::string_view bytes, long baud, Time now);
    /// Until when nothing more should be handed in, because the wire is still busy with requests.
    [[nodiscard]] std::optional<Time> deafUntil(Time now) const;
    /// The bytes that are through by now, in order. `baud` is the rate at which babble flows.
    std::string take(long baud, Time now);
    /// When there is next something to take; nothing while the line is idle.
    [[nodiscard]] std::optional<Time> nextDue() const;
    /// The line was left by its client: what it did not wait for is gone.
    void reset();

    /// Lets time pass for the controllers.
    void advance(Time now);
    /// Whether something moves or runs on one of them.
    [[nodiscard]] bool busy() const;
    [[nodiscard]] std::vector<Controller>& controllers() { return m_controllers; }
    [[nodiscard]] Misbehaviour& faults() { return m_faults; }
    void setPaced(bool paced) { m_paced = paced; }
    void setListener(Listener listener) { m_listener = std::move(listener); }

 private:
    /// A byte on its way to the client.
    struct Due {
        Time when;
        char byte;
    };
    void serve(const RequestReader::Request& request, long baud, Time now);
    void send(std::string_view bytes, long baud, Time earliest);
    [[nodiscard]] Time byteTime(long baud) const;

    std::vector<Controller> m_controllers;
    bool m_paced;
    Misbehaviour m_faults;
    RequestReader m_reader;
    std::deque<Due> m_outgoing;
    Time m_requestEnd{0};  ///< when the last byte from the client is through
    Time m_lineFree{0};    ///< when the last byte to the client is through
    Time m_nextBabble{0};
    std::mt19937 m_random{20000};
    Listener m_listener;
};

}  // namespace zlt::sim
