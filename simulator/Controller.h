#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "simulator/Axis.h"
#include "simulator/Parameters.h"
#include "simulator/Program.h"
#include "simulator/Time.h"

namespace zlt::sim {

/// What a controller is when it leaves the factory.
struct ControllerSetup {
    int id = 1;          ///< 1 to 99
    int firmware = 322;  ///< "VER" answers "V" and this
    long baud = 9600;
    std::string product = "ZLT-R-NX-42";  ///< what "ID" answers
    bool nameInReplies = false;
    AxisLayout layout = {};
};

/// One simulated controller: it knows nothing of bytes and lines, only commands and answers.
class Controller {
 public:
    explicit Controller(const ControllerSetup& setup);

    /// Carries out a command without its framing and gives the answer without its end. Settings
    /// answer "OK"; what is unknown, malformed, refused, or missing in this firmware answers "?"
    /// and the command.
    std::string execute(std::string_view command, Time now);
    /// Lets time pass for the axis and the program.
    void advance(Time now);
    /// Off and on again: the flash copy becomes the working copy.
    void powerCycle(Time now);

    [[nodiscard]] int id() const { return m_id; }
    [[nodiscard]] long baud() const { return m_baud; }
    [[nodiscard]] int firmware() const { return m_firmware; }
    [[nodiscard]] bool namesItselfInReplies() const { return m_working.nameInReplies != 0; }
    /// Whether something happens by itself: the axis moves or the program runs.
    [[nodiscard]] bool busy() const { return m_axis.moving() || m_program.active(); }
    /// As if another controller had been wired in, with its own flash.
    void replaceId(int id);
    void replaceFirmware(int firmware) { m_firmware = firmware; }

 private:
    friend struct Commands;  // the table of what "execute" knows

    [[nodiscard]] unsigned outputs() const;
    [[nodiscard]] bool syncCondition() const;
    [[nodiscard]] Ramp ramp() const { return {m_working.speed, m_working.acceleration}; }

    int m_id;
    int m_firmware;
    long m_baud;
    std::string m_product;
    Parameters m_working;
    Parameters m_flash;
    std::array<std::int64_t, 32> m_variables{};
    Axis m_axis;
    Program m_program;
    Time m_now{0};
    bool m_incremental = false;
    unsigned m_outputs = 0;
    std::int64_t m_latch = 0;
    std::int64_t m_syncMode = 1;
    std::int64_t m_syncPosition = 0;
    bool m_syncOn = false;
};

}  // namespace zlt::sim
