#pragma once

#include "support/SimulatorConsole.h"

namespace zlt::test {

/// The real simulator, running beside the test and worked through its standard input.
class SimulatedBus {
 public:
    /// Starts it with these options beside --until-stdin-closes. Throws when it does not come
    /// up.
    explicit SimulatedBus(const QStringList& options = {});

    /// The device of its port, the new one after "plug".
    [[nodiscard]] std::string device() const { return m_device; }
    /// Says a line on its standard input and returns when it is carried out.
    void say(const char* line);

 private:
    std::unique_ptr<SimulatorConsole> m_console;
    std::string m_device;
};

}  // namespace zlt::test
