#pragma once

#include <functional>
#include <string_view>

#include "link/BusLog.h"
#include "link/Exchange.h"
#include "link/Port.h"
#include "link/Values.h"

namespace zlt {

/// The talk over one port: each exchange is made here, and goes into the log.
class BusTalk {
 public:
    /// Both outlive the talk.
    BusTalk(Port& port, BusLog& log) : m_port(port), m_log(log) {}

    /// Writes a request, framed for `deviceId`. `line` says which port at which rate. False when
    /// the port is lost; else a reply is to be read, or the exchange ended without one.
    bool ask(const Connection& line, std::string_view deviceId, std::string_view command);

    /// Reads the reply, as readReply(). Without a request before it, one more line is read on.
    Reading read(const ReadRule& rule, const std::function<void(char)>& onCharacter = {});

    /// Ends an exchange that brings no reply.
    void endWithoutReply() { end(Outcome::noneAwaited); }

    /// Drops what has arrived.
    void dropInput();

 private:
    void begin();
    void end(Outcome outcome);

    Port& m_port;
    BusLog& m_log;
    BusRecord m_record;  ///< the one under way
    std::chrono::steady_clock::time_point m_begun;
    bool m_underWay = false;
};

}  // namespace zlt
