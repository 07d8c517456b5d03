#pragma once

#include <memory>

#include "ctl/Console.h"
#include "link/Port.h"
#include "platform/ProgramEnd.h"

namespace zlt::ctl {

/// Where a signal is heeded: between two exchanges.
class Heed {
 public:
    Heed(Console& console, ProgramEnd& programEnd) : m_console(console), m_programEnd(programEnd) {}

    /// Ends the program when a signal asks for it; the exit code is 128 and its number.
    void check();

    /// While a stop is under way nothing comes between its commands.
    bool held = false;

 private:
    Console& m_console;
    ProgramEnd& m_programEnd;
};

/// A port whose next request is where a signal ends the program.
class HeedingPort final : public Port {
 public:
    HeedingPort(std::unique_ptr<Port> port, Heed& heed) : m_port(std::move(port)), m_heed(heed) {}

    bool open(PortNumber number, std::string_view baudRate) override {
        return m_port->open(number, baudRate);
    }
    void close() override { m_port->close(); }
    [[nodiscard]] bool isOpen() const override { return m_port->isOpen(); }
    bool write(std::string_view bytes) override {
        m_heed.check();
        return m_port->write(bytes);
    }
    PortInput read(char& character) override { return m_port->read(character); }
    PortInput waitForInput(std::chrono::milliseconds time) override {
        return m_port->waitForInput(time);
    }
    [[nodiscard]] bool numberStillMeant(PortNumber number) const override {
        return m_port->numberStillMeant(number);
    }
    [[nodiscard]] std::string device() const override { return m_port->device(); }
    [[nodiscard]] std::string remark() const override { return m_port->remark(); }
    [[nodiscard]] std::string errorText() const override { return m_port->errorText(); }

 private:
    std::unique_ptr<Port> m_port;
    Heed& m_heed;
};

}  // namespace zlt::ctl
