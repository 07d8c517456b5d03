#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "link/BusLog.h"
#include "link/DeviceNotes.h"
#include "panel/PanelView.h"
#include "platform/Moment.h"

namespace zlt {

/// What the controller has reported, each value with the moment at which it was read last.
class ReadOuts {
 public:
    struct Value {
        std::string name;
        std::string text;  ///< Latin-1
        std::chrono::steady_clock::time_point read;
    };

    /// Notes what a pass of the poll has read, without a time-out.
    void note(const AxisReading& reading, std::chrono::steady_clock::time_point now);
    /// Notes one value. One that has been noted before keeps its place.
    void note(std::string_view name, std::string_view text,
              std::chrono::steady_clock::time_point now);
    /// Another device is worked from now on.
    void clear() { m_values.clear(); }

    [[nodiscard]] const std::vector<Value>& values() const { return m_values; }

 private:
    std::vector<Value> m_values;
};

/// Everything that is told of the panel's state.
struct StateReport {
    Moment now;
    Connection connection;
    std::string portDevice;  ///< what stands behind the port, UTF-8; empty if that is not known
    PanelState panel;
    ReadOuts readOuts;
    DeviceNote note;
    std::vector<BusRecord> exchanges;         ///< the last ones
    std::vector<BusRecord> exchangesButPoll;  ///< the last ones that are not routine
};

/// The state as a text for whoever is asked for help: UTF-8, lines ended by LF.
std::string stateText(const StateReport& report);

}  // namespace zlt
