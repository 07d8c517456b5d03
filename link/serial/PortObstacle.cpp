#include "link/serial/PortObstacle.h"

#include <QtGlobal>
#include <fstream>
#include <sstream>
#include <string>

#include "link/serial/LineClaim.h"
#include "link/serial/SerialHandle.h"

#ifdef Q_OS_UNIX
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/sysmacros.h>
#endif
#endif

namespace zlt {
namespace {

#ifdef Q_OS_UNIX

#ifdef Q_OS_LINUX
/// A line of /proc/tty/drivers: "usbserial            /dev/ttyUSB   188 0-511 serial" (the name in
/// front may hold blanks). Whether the driver has this device.
bool drives(const std::string& line, dev_t device) {
    const auto path = line.find(" /dev/");
    if (path == std::string::npos)
        return false;
    std::istringstream fields(line.substr(path));
    std::string prefix;
    unsigned kind = 0, first = 0;
    fields >> prefix >> kind >> first;
    unsigned last = first;
    if (fields.peek() == '-')
        fields.ignore() >> last;
    return kind == major(device) && first <= minor(device) && minor(device) <= last;
}
#endif

/// Whether a character device is a terminal, by what the kernel says of its number: to open it
/// and ask would raise its lines.
bool isTerminal(const struct stat& status) {
    if (!S_ISCHR(status.st_mode))
        return false;
#ifdef Q_OS_LINUX
    std::ifstream drivers("/proc/tty/drivers");
    if (!drivers)
        return true;
    for (std::string line; std::getline(drivers, line);)
        if (drives(line, status.st_rdev))
            return true;
    return false;
#else
    return true;
#endif
}

std::string userName() {
    const passwd* user = getpwuid(getuid());
    return user ? user->pw_name : "$USER";
}

/// By the group database, which a session that began earlier has not read.
bool isMember(const group& owner, const std::string& user) {
    for (char** member = owner.gr_mem; member && *member; ++member)
        if (user == *member)
            return true;
    return false;
}

void examineRights(const std::string& device, const struct stat& status, PortFindings& findings) {
    findings.mayOpen = mayReadAndWrite(device);
    findings.user = userName();
    constexpr mode_t groupMayUse = S_IRGRP | S_IWGRP;
    if (findings.mayOpen || (status.st_mode & groupMayUse) != groupMayUse)
        return;
    if (const group* owner = getgrgid(status.st_gid)) {
        findings.group = owner->gr_name;
        findings.inGroupAlready = isMember(*owner, findings.user);
    }
}

void examineDevice(PortFindings& findings) {
    const std::string& device = findings.entry.device;
    struct stat status {};
    findings.exists = stat(device.c_str(), &status) == 0;
    if (!findings.exists)
        return;
    findings.serial = isTerminal(status);
    examineRights(device, status, findings);
    findings.users = otherUsersOf(device);
    const auto lockFile = lockFileOf(device);
    const bool refused = lockFile && !lockFile->mayBeTaken;
    if (refused && !lockFile->holderLives)
        findings.deadLock = lockFile->path;
    if (findings.last.holderSeen && findings.users.empty() && !refused)
        findings.last = {};  // the port is free by now
}

#else

void examineDevice(PortFindings& findings) {
    // Windows lists only ports that are there, and has no rights on them.
    findings.exists = findings.serial = findings.mayOpen = true;
}

#endif

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
    report.device = findings.entry.device;
    if (!findings.entry.maker.empty())
        report.device += " \xE2\x80\x93 " + findings.entry.maker;

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
