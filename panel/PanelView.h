#pragma once

#include <string_view>

#include "link/Values.h"

namespace zlt {

/// A colour as red, green and blue, 0 to 255.
struct Rgb {
    int red = 0;
    int green = 0;
    int blue = 0;
};

/// What the poll reads as a text.
enum class Value { current, position, encoder, motion, moveMode, programLine, programState };
/// What it reads as on or off.
enum class Indicator { negativeLimit, positiveLimit, home, output };

/// What the control panel's rules show, and nothing of how. Texts are Latin-1.
class PanelView {
 public:
    virtual ~PanelView() = default;

    /// The status box's words; its colour stays.
    virtual void showLinkText(std::string_view text) = 0;
    virtual void showLinkState(std::string_view text, Rgb colour) = 0;
    /// Whether what stands on the screen is what the controller says now.
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
    /// Enables what this firmware has and disables what it lacks.
    virtual void gateFeatures(FirmwareVersion firmware) = 0;

    virtual void showValue(Value value, std::string_view text) = 0;
    virtual void showIndicator(Indicator indicator, bool lit) = 0;
    virtual void showDriverEnabled(bool enabled) = 0;
    virtual void showDemo(bool on) = 0;
};

}  // namespace zlt
