#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "link/PanelLink.h"

namespace zlt {

/// The three boxes of the "Control" frame, read at the moment of a click.
class MotionView {
 public:
    enum class Box { speed, acceleration, position };

    virtual ~MotionView() = default;

    /// What stands in a box, UTF-8.
    virtual std::string typed(Box box) const = 0;
    /// The same as it goes on the wire, blanks and all. Throws NotLatin1 and ControlCharacter.
    virtual std::string typedForWire(Box box) const = 0;
    virtual void fill(Box box, std::string_view text) = 0;
    /// Puts the cursor into a box whose text cannot be used.
    virtual void pointTo(Box box) = 0;
};

/// A button that sends one fixed command and nothing else of its own.
struct CommandButton {
    const char* control;
    std::string_view command;
    bool needsHomingFirmware = false;  ///< does nothing below firmwareWithHLHoming
    bool endsDemo = false;             ///< of the plain ones; a stop always does
};

/// The operator's direct motion commands. No reply is examined but the one of "MM": what
/// becomes of a command is seen in the status.
class MotionCommands {
 public:
    /// `endDemo` ends the demo moves, which a stop must, and switching the driver off.
    MotionCommands(PanelLink& link, MotionView& view, std::function<void()> endDemo);

    /// Buttons whose command goes out behind speed and acceleration.
    static std::span<const CommandButton> motionButtons();
    /// Buttons whose command goes out alone.
    static std::span<const CommandButton> plainButtons();
    /// Sends one of motionButtons() as SendMotionCommand() does, if the firmware has it.
    void pressMotion(const CommandButton& button);
    /// Sends one of plainButtons(); the reply does not matter.
    void pressPlain(const CommandButton& button);

    /// The stops, which get through whatever stands in the boxes; see SendMotionCommand().
    void RSTOP_Press() { SendMotionCommand("STOP"); }
    void ISTOP_Press() { SendMotionCommand("ABORT"); }

    /// Sends "HSPD=" and "ACC=" with the boxes' whole numbers. Throws ConversionError, with
    /// nothing sent, when a box holds none.
    void SendSpeedAndAccel();

    /// Sends speed and acceleration, then `command`. A stop ("STOP", "ABORT") gets through
    /// whatever stands in the boxes: a setting that is no number is left out, and the
    /// ConversionError is thrown behind it.
    void SendMotionCommand(std::string_view command);

    // The position goes out as typed, the speed of SSPD_Click() too. A character that the wire
    // cannot carry throws runtime_error, with nothing sent.

    /// Moves to the position, or by it: "X", behind speed and acceleration. Throws as
    /// SendSpeedAndAccel().
    void ABS_Click();
    /// Moves to position 0, in absolute mode, and takes incremental mode up again where it was.
    /// Throws as SendSpeedAndAccel().
    void Datum_Click();
    /// Changes the speed of the move that is under way.
    void SSPD_Click();
    /// Set the position and the encoder counter to the position; an empty box counts as 0.
    void Command7_Click() { setCounter("PX="); }
    void Command6_Click() { setCounter("EX="); }

 private:
    /// The boxes' numbers, nothing for one that holds none, and what is wrong with the first
    /// such one.
    struct Settings {
        std::optional<std::int32_t> speed;
        std::optional<std::int32_t> acceleration;
        std::optional<MotionView::Box> faulty;
        std::string fault;
    };
    Settings readSettings();
    void refuse(const Settings& settings);
    void send(const Settings& settings);
    /// A box's text as it stands. Points to the box and names it in what it throws.
    std::string verbatim(MotionView::Box box);
    void setCounter(std::string_view command);

    PanelLink& m_link;
    MotionView& m_view;
    std::function<void()> m_endDemo;
};

}  // namespace zlt
