#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "link/PanelLink.h"
#include "panel/PanelView.h"

namespace zlt {

/// The operator's direct motion commands. No reply is examined but the one of "MM": what
/// becomes of a command is seen in the status.
///
/// A command takes the boxes as they stand at the click and leaves in them what an empty one is
/// filled with. A text that cannot be used throws BadField, with nothing sent.
class MotionCommands {
 public:
    /// `endDemo` ends the demo moves, which a stop must.
    MotionCommands(PanelLink& link, std::function<void()> endDemo);

    /// Sends `command` alone; the reply does not matter.
    void send(std::string_view command) { m_link.SendReceive(command); }

    /// Sends "HSPD=" and "ACC=" with the boxes' whole numbers, then `command`. A stop ("STOP",
    /// "ABORT") gets through whatever stands in the boxes: a setting that is no number is left
    /// out, and BadField is thrown after it.
    void SendMotionCommand(MotionFields& fields, std::string_view command);
    /// The same for a homing at high and low speed; does nothing below firmwareWithHLHoming.
    void sendHLHoming(MotionFields& fields, std::string_view command);

    void stop(MotionFields& fields) { SendMotionCommand(fields, "STOP"); }
    void abort(MotionFields& fields) { SendMotionCommand(fields, "ABORT"); }

    /// Moves to the position, or by it. It goes out as typed.
    void move(MotionFields& fields);
    /// Moves to position 0, in absolute mode, and takes incremental mode up again where it was.
    void moveToZero(MotionFields& fields);
    /// Changes the speed of the move that is under way. It goes out as typed.
    void changeSpeed(const MotionFields& fields);
    /// Set the position and the encoder counter to the position, as typed; an empty box counts as
    /// 0.
    void setPosition(MotionFields& fields) { setCounter(fields, "PX="); }
    void setEncoder(MotionFields& fields) { setCounter(fields, "EX="); }

 private:
    /// The boxes' numbers, nothing for one that holds none or is left out, and what is wrong with
    /// the first bad one.
    struct Settings {
        std::optional<std::int32_t> speed;
        std::optional<std::int32_t> acceleration;
        std::optional<BadField> bad;
    };
    static Settings read(MotionFields& fields);
    static Settings readGood(MotionFields& fields);
    void sendSettings(const Settings& settings);
    void setCounter(MotionFields& fields, std::string_view command);

    PanelLink& m_link;
    std::function<void()> m_endDemo;
};

}  // namespace zlt
