#include "link/serial/PortObstacle.h"

#include <string>

namespace zlt {
namespace {

std::string quoted(const std::string& path) {
    std::string text = "'";
    for (const char c : path)
        text += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return text + "'";
}

std::string nothingThereText(const PortFindings& findings) {
    const std::string name =
        findings.number.value > 0 ? portText(findings.number) : "This port name";
    if (findings.fromList)
        return name + " is not in the port list " + std::string(portListFileName) + ".";
    return name +
           " stands for no serial port of this computer.  Plug the adapter in, or choose another "
           "port.";
}

/// What the port stands for, and its maker. On Windows the device bears the port's own name, which
/// says nothing.
std::string deviceText(const PortFindings& findings) {
    const auto& [device, maker, usb, adapter] = findings.entry;
    if (device == portText(findings.number))
        return maker.empty() ? "a serial port of this computer" : maker;
    return maker.empty() ? device : device + " \xE2\x80\x93 " + maker;
}

void reportNoRight(const PortFindings& findings, PortReport& report) {
    if (findings.group.empty()) {
        report.problem =
            "You may not open it.  This line lets you, until " +
            std::string(findings.entry.usb ? "it is unplugged:" : "the computer starts anew:");
        report.command =
            "sudo setfacl -m u:" + findings.user + ":rw " + quoted(findings.entry.device);
    } else if (findings.inGroupAlready) {
        report.problem = "You may not open it yet: you have joined the group " + findings.group +
                         " since you logged in.  Log out and in again.";
    } else {
        report.problem = "You may not open it: it belongs to the group " + findings.group +
                         ".  Join the group with this line, then log out and in again:";
        report.command = "sudo usermod -a -G " + findings.group + " " + findings.user;
    }
}

std::string usersInWords(const std::vector<PortUser>& users) {
    std::string text;
    for (const PortUser& user : users) {
        if (!text.empty())
            text += ", ";
        text += user.program.empty()
                    ? "process " + std::to_string(user.process)
                    : user.program + " (process " + std::to_string(user.process) + ")";
    }
    return text;
}

}  // namespace

PortFindings examinePort(const PortDirectory& directory, PortNumber number) {
    PortFindings findings;
    findings.number = number;
    findings.entry = directory.entry(number);
    findings.fromList = directory.fromList();
    findings.last = directory.lastOpening(number);
    if (!findings.entry.device.empty())
        examineDevice(findings);
    return findings;
}

PortReport reportPort(const PortFindings& findings) {
    PortReport report;
    if (findings.entry.device.empty()) {
        report.obstacle = Obstacle::nothingThere;
        report.problem = nothingThereText(findings);
        return report;
    }
    report.device = deviceText(findings);

    if (!findings.exists) {
        report.obstacle = Obstacle::noSuchDevice;
        report.problem = "There is no such device now.  Plug the adapter in.";
    } else if (!findings.serial) {
        report.obstacle = Obstacle::notSerial;
        report.problem = "This is not a serial port.";
    } else if (!findings.mayOpen) {
        report.obstacle = Obstacle::noRight;
        reportNoRight(findings, report);
    } else if (!findings.users.empty()) {
        report.obstacle = Obstacle::inUse;
        report.problem = "In use by " + usersInWords(findings.users) + ".  Close that first.";
    } else if (!findings.deadLock.empty()) {
        report.obstacle = Obstacle::deadLock;
        report.problem =
            "A program that is gone, of another user, left its lock file.  This line removes it:";
        report.command = "sudo rm " + quoted(findings.deadLock);
    } else if (!findings.last.failure.empty()) {
        report.obstacle = Obstacle::failed;
        report.problem = "The last try to open it failed: " + findings.last.failure + ".";
    } else if (!findings.last.remark.empty()) {
        report.obstacle = Obstacle::otherwise;
        report.problem = findings.last.remark;
    }
    return report;
}

}  // namespace zlt
