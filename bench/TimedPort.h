#pragma once

#include "bench/PacedPeer.h"
#include "link/serial/QtSerialPort.h"

namespace zlt::bench {

/// The panel's port, which tells the peer of each request.
class TimedPort : public Port {
 public:
    TimedPort(PacedPeer& peer, PortDirectory& directory) : m_peer(peer), m_port(directory) {}

    bool open(PortNumber number, std::string_view baudRate) override {
        return m_port.open(number, baudRate);
    }
    void close() override { m_port.close(); }
    [[nodiscard]] bool isOpen() const override { return m_port.isOpen(); }
    bool write(std::string_view bytes) override {
        m_peer.requestComing();
        const bool written = m_port.write(bytes);
        m_peer.requestWritten();
        return written;
    }
    PortInput read(char& character) override { return m_port.read(character); }
    PortInput waitForInput(std::chrono::milliseconds time) override {
        return m_port.waitForInput(time);
    }
    [[nodiscard]] std::string errorText() const override { return m_port.errorText(); }

 private:
    PacedPeer& m_peer;
    QtSerialPort m_port;
};

}  // namespace zlt::bench
