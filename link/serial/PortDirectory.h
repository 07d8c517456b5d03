#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "link/Settings.h"
#include "link/Values.h"
#include "link/serial/SerialDevices.h"

namespace zlt {

/// What stands behind a port number. `device` is empty when nothing does.
struct PortEntry {
    std::string device;
    std::string maker;         ///< who made the adapter, and what tells it from its like
    bool usb = false;          ///< a USB adapter, as far as is known
    std::string adapter = {};  ///< tells which it is, from one start to the next; else empty
};

/// How the last try to open a port went. Texts are UTF-8.
struct Opening {
    std::string failure = {};  ///< empty after a good one
    bool holderSeen = false;   ///< it failed, and a program was seen to hold the port
    std::string remark = {};   ///< what is not as it was asked for on the open port
};

/// Says what stands behind each port number: the port list where there is one, else the
/// machine's devices. On Windows, which numbers its ports itself, always these.
class PortDirectory {
 public:
    static constexpr PortNumber beyondLast{portCount + 1};

    using Machine = std::function<std::vector<SerialDevice>()>;

    /// `portList` is the port list's path, relative to the current directory; `machine` tells
    /// which devices there are.
    explicit PortDirectory(std::filesystem::path portList, Machine machine = devicesOfThisMachine);

    /// Looks again at the list and the machine. Slow: never within a poll.
    void refresh();

    /// Looks again only when the list or the machine's devices have changed since.
    void refreshIfChanged();

    /// The device of a port, freshly looked up when it is not known or gone. Nothing for a
    /// settled port whose device is gone, whatever has its name or number by now.
    std::optional<std::string> device(PortNumber number);

    /// Whether a fresh look-up of the number, as another program makes it, leads to the device that
    /// was settled; of a number that is not settled it is true.
    bool numberStillMeant(PortNumber number);

    /// What was found at the last look.
    [[nodiscard]] PortEntry entry(PortNumber number) const;
    [[nodiscard]] bool fromList() const { return m_fromList; }
    /// What is wrong with the port list, a sentence; empty when nothing is.
    [[nodiscard]] const std::string& listProblem() const { return m_listProblem; }

    /// The number that stands for a device given by its path; for one that has none, a number
    /// beyond the last, which leads there from now on.
    PortNumber numberOf(const std::string& device);

    /// From here on this number stands for the device behind it now, and no other.
    void settle(PortNumber number);
    void release() { m_settled.reset(); }
    [[nodiscard]] bool isSettled(PortNumber number) const {
        return m_settled && m_settled->number == number;
    }

    /// Remembers how the last try to open a port went, until its device may be another.
    void noteOpening(PortNumber number, Opening opening);
    [[nodiscard]] Opening lastOpening(PortNumber number) const;
    void forgetOpenings() { m_openings.clear(); }

 private:
    struct Settled {
        PortNumber number;
        std::string device;
        std::string identity;
    };

    /// What tells that the list or the devices may have changed.
    [[nodiscard]] std::string fingerprint() const;
    /// Says which number stands for which of the devices, as this system has it.
    void findEntries();
    void readList();
    void numberDevices();
    [[nodiscard]] PortEntry entryFor(const std::string& device) const;
    /// What tells the device behind a path from any other: the adapter where it is known, else
    /// the path itself.
    [[nodiscard]] std::string identityOf(const std::string& device) const;

    std::filesystem::path m_portList;
    Machine m_machine;
    std::vector<SerialDevice> m_devices;
    std::map<PortNumber, PortEntry> m_entries;
    std::string m_unnumbered;  ///< the device behind the number beyond the last; often none
    bool m_fromList = false;
    std::string m_listProblem;
    std::string m_fingerprint;
    std::map<PortNumber, Opening> m_openings;
    std::optional<Settled> m_settled;
};

/// Settles which device a port number means for as long as it lives: a run of the panel, its
/// other screens and its tools included.
class SettledPort {
 public:
    SettledPort(PortDirectory& directory, PortNumber number) : m_directory(directory) {
        m_directory.settle(number);
    }
    ~SettledPort() { m_directory.release(); }
    SettledPort(const SettledPort&) = delete;
    SettledPort& operator=(const SettledPort&) = delete;

 private:
    PortDirectory& m_directory;
};

}  // namespace zlt
