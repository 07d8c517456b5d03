#pragma once

#include <optional>
#include <string>

#include "link/Values.h"

namespace zlt {

/// How the panel stands with its controller.
enum class LinkState { opening, answering, silent, noPort };

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

}  // namespace zlt
