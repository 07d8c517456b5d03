#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "link/Values.h"
#include "panel/AxisReading.h"

namespace zlt {

/// The boxes that the direct commands read.
enum class PanelField { speed, acceleration, position, syncPosition };

/// What stands in the boxes of the "Control" frame at a click, UTF-8.
struct MotionFields {
    std::string speed;
    std::string acceleration;
    std::string position;
    /// An empty speed or acceleration is filled and sent; else it is left out.
    bool fillsEmpty = true;
};

/// When the synchronisation output is on, by the number after "SYNC=".
enum class SyncCondition { equal = 1, lessThan = 2, greaterThan = 3 };

/// What is selected and typed for the synchronisation output at a click, UTF-8.
struct SyncFields {
    std::optional<SyncCondition> condition;  ///< nothing when none is selected
    std::string position;
};

/// A box's text cannot be used. what() is a sentence that names the box, UTF-8.
class BadField : public std::runtime_error {
 public:
    BadField(PanelField field, const std::string& sentence)
        : std::runtime_error(sentence), m_field(field) {}

    [[nodiscard]] PanelField field() const { return m_field; }

 private:
    PanelField m_field;
};

/// How the panel stands with its controller.
enum class LinkState { opening, answering, silent, noPort };

/// What stands in place of an identity or a version that is not known.
inline constexpr std::string_view unknownText = "???";

/// What the control panel shows beside the axis. Texts are Latin-1 where nothing else is said.
struct PanelState {
    LinkState link = LinkState::opening;
    /// Whether what stands on the screen is what the controller says now.
    bool live = true;
    std::string device;       ///< the address that is talked to
    std::string deviceShown;  ///< what stands in the device box: the controller's own word at load
    std::string id;
    std::string version;
    std::string baudRate;
    /// What is not as it was asked for on the port, a sentence in UTF-8; empty for nothing.
    std::string portRemark;
    bool demo = false;
    /// The firmware that was loaded, by which buttons look as served or not; nothing before.
    std::optional<FirmwareVersion> loadedFirmware;

    bool operator==(const PanelState&) const = default;
};

/// Is handed what the control panel's rules have to show. Texts are Latin-1.
class PanelView {
 public:
    virtual ~PanelView() = default;

    /// Paints at once what the link has become, and that the values are not live any more, without
    /// events: the exchanges that follow may block for long.
    virtual void showState(const PanelState& state) = 0;
    /// Shows what a pass of the poll has read; a field without a value stays as it stands.
    virtual void showReading(const AxisReading& reading) = 0;

    /// What the load has read for the operator's boxes.
    virtual void fillSettings(std::string_view speed, std::string_view acceleration) = 0;
    /// Puts the synchronisation output's condition and position back to "=" and "0".
    virtual void resetSync() = 0;
    /// Another device is worked from now on: what says something of the operator's last click at
    /// the one before goes.
    virtual void deviceSwitched(std::string_view before, std::string_view now) = 0;
    /// Empties what belongs to the program: no controller says it any more.
    virtual void forgetProgram() = 0;
};

}  // namespace zlt
