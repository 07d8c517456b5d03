#pragma once

#include <QStringList>
#include <memory>
#include <string>

namespace zlt::test {

/// A running zlt-sim, seen from its console. It ends with the object.
class SimulatorConsole {
 public:
    virtual ~SimulatorConsole() = default;

    virtual void write(const std::string& lines) = 0;
    /// The next line that it prints, without its end. Throws when none comes within ten seconds.
    virtual std::string readLine() = 0;
};

/// Starts the simulator with these options beside --until-stdin-closes.
std::unique_ptr<SimulatorConsole> startSimulator(const QStringList& options);

}  // namespace zlt::test
