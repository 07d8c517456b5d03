#pragma once

#include <QStringList>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace zlt::test {

/// A running zlt-sim, seen from its console. It ends with the object.
class SimulatorConsole {
 public:
    virtual ~SimulatorConsole() = default;

    virtual void write(const std::string& lines) = 0;
    /// The next line that it prints, without its end. Throws when none comes within ten seconds.
    virtual std::string readLine() = 0;
    /// Does `work` while the simulator stands still, which only a child of the test can be made to.
    virtual void pauseWhile(const std::function<void()>& /*work*/) {
        throw std::logic_error("this simulator cannot be held");
    }
};

/// Starts the simulator with these options beside --until-stdin-closes.
std::unique_ptr<SimulatorConsole> startSimulator(const QStringList& options);

}  // namespace zlt::test
