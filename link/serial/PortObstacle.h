#pragma once

#include <string>
#include <vector>

#include "link/serial/PortDirectory.h"
#include "link/serial/PortUsers.h"

namespace zlt {

/// What can be seen of a port's device without opening it (opening raises its lines).
struct PortFindings {
    PortNumber number;
    PortEntry entry;        ///< its device is empty when nothing stands behind the number
    bool fromList = false;  ///< the port list says so, not the machine
    bool exists = false;
    bool serial = false;          ///< it is a terminal device at all
    bool mayOpen = false;         ///< this user may read and write it
    std::string group;            ///< the group that owns it, where that group may use it
    bool inGroupAlready = false;  ///< the user is in that group, but this session is older
    std::string user;             ///< who runs the panel
    std::vector<PortUser> users;
    std::string deadLock;  ///< a lock file that a program left behind, another user's
    Opening last;          ///< the last try to open it, while what made it fail is still there
};

/// What stands between the operator and an open port, in the order in which it is looked for.
/// `failed` is the last try to open it, with nothing else to be seen; `otherwise` that it did
/// open, but not quite as it was asked to.
enum class Obstacle {
    none,
    nothingThere,
    noSuchDevice,
    notSerial,
    noRight,
    inUse,
    deadLock,
    failed,
    otherwise,
};

/// What the start-up screen says about the chosen port. Texts are UTF-8.
struct PortReport {
    Obstacle obstacle = Obstacle::none;
    std::string device;   ///< what the port stands for, and its maker
    std::string problem;  ///< what stands in the way; empty when nothing does
    std::string command;  ///< a line for a terminal that mends it; often empty
};

/// Fills in what this system tells of the device of `findings.entry`, which is known.
void examineDevice(PortFindings& findings);

/// Looks at the device behind a port number. Some milliseconds.
PortFindings examinePort(const PortDirectory& directory, PortNumber number);

/// Puts the findings into words, the first obstacle on the way to an open port.
PortReport reportPort(const PortFindings& findings);

}  // namespace zlt
