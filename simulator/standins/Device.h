#pragma once

#include <memory>
#include <string>

#include "link/serial/PortDirectory.h"
#include "link/serial/SystemPort.h"
#include "simulator/standins/Tool.h"

namespace zlt::standins {

/// A controller's program memory, reached over a port of its own. Everything throws Failure when
/// the port or the controller does not do as it should.
class Device {
 public:
    /// Opens the port and makes sure that the controller meant is the one that answers.
    Device(PortNumber port, const std::string& baudRate, std::string deviceId);

    [[nodiscard]] std::string name() const;
    void clear();
    /// Replaces the whole program.
    void write(const Lines& code);
    [[nodiscard]] Lines read();

 private:
    std::string ask(const std::string& command);
    /// Sends what is answered "OK" or refused. `what` is named in the failure.
    void order(const std::string& command, const std::string& what);

    PortDirectory m_directory{portListFileName};
    std::unique_ptr<Port> m_port = makeSystemPort(m_directory);
    std::string m_id;
};

}  // namespace zlt::standins
