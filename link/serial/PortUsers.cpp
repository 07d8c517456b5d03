#include "link/serial/PortUsers.h"

#ifdef __linux__
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "link/serial/LineClaim.h"
#include "link/serial/SerialDevices.h"
#endif

namespace zlt {

#ifdef __linux__

namespace {

namespace fs = std::filesystem;

std::string firstLine(const fs::path& file) {
    std::string line;
    std::ifstream stream(file);
    std::getline(stream, line);
    return line;
}

int processOf(const fs::path& folder) {
    const std::string name = folder.filename().string();
    int process = 0;
    const auto parsed = std::from_chars(name.data(), name.data() + name.size(), process);
    return parsed.ptr == name.data() + name.size() ? process : 0;
}

bool holdsOpen(const fs::path& processFolder, const std::string& device) {
    std::error_code denied;
    for (const auto& file : fs::directory_iterator(processFolder / "fd", denied)) {
        std::error_code gone;
        if (fs::read_symlink(file.path(), gone) == device)
            return true;
    }
    return false;
}

void addOpeners(const std::string& device, std::set<int>& processes) {
    std::error_code denied;
    for (const auto& folder : fs::directory_iterator("/proc", denied))
        if (const int process = processOf(folder.path()); process > 0)
            if (holdsOpen(folder.path(), device))
                processes.insert(process);
}

/// Lines of /proc/locks: "1: FLOCK  ADVISORY  WRITE 1234 00:05:678 0 EOF" (proc(5)).
void addFlockHolders(const std::string& device, std::set<int>& processes) {
    struct stat status {};
    if (stat(device.c_str(), &status) != 0)
        return;
    std::array<char, 64> place{};
    std::snprintf(place.data(), place.size(), "%02x:%02x:%lu", major(status.st_dev),
                  minor(status.st_dev), static_cast<unsigned long>(status.st_ino));
    std::ifstream locks("/proc/locks");
    for (std::string line; std::getline(locks, line);) {
        std::istringstream fields(line);
        std::string index, kind, mode, access, file;
        int process = 0;
        fields >> index >> kind >> mode >> access >> process >> file;
        if (fields && kind == "FLOCK" && file == place.data() && process > 0)
            processes.insert(process);
    }
}

}  // namespace

std::vector<PortUser> otherUsersOf(const std::string& deviceName) {
    const std::string device = canonicalDevice(deviceName);
    std::set<int> processes;
    // A pseudo-terminal is held open by the program that made it; only a lock says more.
    if (!device.starts_with("/dev/pts/"))
        addOpeners(device, processes);
    addFlockHolders(device, processes);
    if (const auto lockFile = lockFileOf(device); lockFile && lockFile->holderLives)
        processes.insert(lockFile->process);
    processes.erase(static_cast<int>(getpid()));

    std::vector<PortUser> users;
    users.reserve(processes.size());
    for (const int process : processes)
        users.push_back({firstLine(fs::path("/proc") / std::to_string(process) / "comm"), process});
    return users;
}

bool isOpenElsewhere(const std::string& deviceName) {
    std::set<int> processes;
    addOpeners(canonicalDevice(deviceName), processes);
    processes.erase(static_cast<int>(getpid()));
    return !processes.empty();
}

#else

std::vector<PortUser> otherUsersOf(const std::string&) {
    return {};
}

bool isOpenElsewhere(const std::string&) {
    return false;
}

#endif

}  // namespace zlt
