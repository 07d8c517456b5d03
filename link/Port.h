#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "link/Values.h"

namespace zlt {

/// What one read, or one wait for input, met.
enum class PortInput {
    nothing,    ///< nothing is waiting (or nothing came in time)
    character,  ///< a character was read (or is waiting)
    lost,       ///< the port is not open, was removed or failed
};

/// One serial port, 8 data bits, no parity, 1 stop bit, DTR off. A port that fails closes
/// itself; errorText() then says why. The same object can be opened again.
class Port {
 public:
    virtual ~Port() = default;

    /// Opens the port for this program alone and drops what had arrived before. `baudRate` is the
    /// operator's text, a positive whole number. False, and closed, when that cannot be done.
    virtual bool open(PortNumber number, std::string_view baudRate) = 0;
    /// Closes the port; one that is closed already stays so.
    virtual void close() = 0;
    [[nodiscard]] virtual bool isOpen() const = 0;

    /// Writes all of `bytes`. False when the port is lost.
    virtual bool write(std::string_view bytes) = 0;

    /// Takes one waiting character, without waiting for any.
    virtual PortInput read(char& character) = 0;

    /// Waits until something can be read, `time` at the most.
    virtual PortInput waitForInput(std::chrono::milliseconds time) = 0;

    /// Whether another program that looks `number` up by itself comes to the device that it stands
    /// for here. Asked of a closed port, too.
    [[nodiscard]] virtual bool numberStillMeant(PortNumber /*number*/) const { return true; }

    /// The device of the last opening, a path or a name, UTF-8; empty where that is not known.
    [[nodiscard]] virtual std::string device() const { return {}; }

    /// What is not as it was asked for on the open port, a sentence in UTF-8; often empty.
    [[nodiscard]] virtual std::string remark() const { return {}; }

    /// The last failure in the system's words, UTF-8. Empty when there was none.
    [[nodiscard]] virtual std::string errorText() const = 0;
};

}  // namespace zlt
