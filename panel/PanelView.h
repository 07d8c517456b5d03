#pragma once

#include <string_view>

#include "link/Values.h"
#include "panel/AxisReading.h"

namespace zlt {

/// A colour as red, green and blue, 0 to 255.
struct Rgb {
    int red = 0;
    int green = 0;
    int blue = 0;
};

/// What the control panel's rules show, and nothing of how. Texts are Latin-1.
class PanelView {
 public:
    virtual ~PanelView() = default;

    /// The status box's words; its colour stays.
    virtual void showLinkText(std::string_view text) = 0;
    /// Paints at once, without events: the exchanges that follow may block for long.
    virtual void showLinkState(std::string_view text, Rgb colour) = 0;
    /// Whether what stands on the screen is what the controller says now. Paints it at once where
    /// it is not, for the same reason.
    virtual void showLive(bool live) = 0;

    virtual void showSelectedDevice(std::string_view deviceId) = 0;
    virtual void showIdentity(std::string_view id) = 0;
    virtual void showVersion(std::string_view version) = 0;
    virtual void showBaudRate(std::string_view baudRate) = 0;
    /// What is not as it was asked for on the port, a sentence in UTF-8; empty for nothing.
    virtual void showPortRemark(std::string_view remark) = 0;

    virtual void showSpeed(std::string_view speed) = 0;
    virtual void showAcceleration(std::string_view acceleration) = 0;
    /// Puts the synchronisation output's condition and position back to "=" and "0".
    virtual void resetSync() = 0;
    /// Another device is worked from now on: what says something of the operator's last click at
    /// the one before goes, what shows that one's address follows.
    virtual void showDeviceSwitch(std::string_view before, std::string_view now) = 0;
    /// Enables what this firmware has and disables what it lacks.
    virtual void gateFeatures(FirmwareVersion firmware) = 0;

    /// Shows what a pass of the poll has read; a field without a value stays as it stands.
    virtual void showReading(const AxisReading& reading) = 0;
    /// Empties what belongs to the program: nobody says it any more.
    virtual void forgetProgram() = 0;
    virtual void showDemo(bool on) = 0;
};

}  // namespace zlt
