#include "bench/PanelClient.h"

#include <fstream>
#include <stdexcept>
#include <utility>

#include "link/QtSerialPort.h"

namespace zlt::bench {
namespace {

constexpr PortNumber port{1};
/// What the link returns in place of a reply.
constexpr std::string_view noAnswer = "0";

/// The panel's port, which tells the peer of each request.
class TimedPort : public Port {
 public:
    TimedPort(PacedPeer& peer, PortDirectory& directory) : m_peer(peer), m_port(directory) {}

    bool open(PortNumber number, std::string_view settings) override {
        return m_port.open(number, settings);
    }
    void close() override { m_port.close(); }
    bool isOpen() const override { return m_port.isOpen(); }
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
    std::string errorText() const override { return m_port.errorText(); }

 private:
    PacedPeer& m_peer;
    QtSerialPort m_port;
};

/// The same, deaf while it waits.
class SleepingPort final : public TimedPort {
 public:
    SleepingPort(PacedPeer& peer, PortDirectory& directory, Waits& waits)
        : TimedPort(peer, directory), m_waits(waits) {}

    PortInput waitForInput(std::chrono::milliseconds time) override {
        m_waits.sleep(time);
        return PortInput::nothing;
    }

 private:
    Waits& m_waits;
};

std::filesystem::path writePortList(const QTemporaryDir& folder, const std::string& device) {
    std::filesystem::path file = folder.filePath(QStringLiteral("bench.ports")).toStdString();
    std::ofstream list(file);
    list << portText(port) << '=' << device << '\n';
    if (!list.flush())
        throw std::runtime_error("cannot write " + file.string());
    return file;
}

}  // namespace

void ThrowingGate::message(std::string_view text) {
    throw std::runtime_error(std::string(text));
}

PanelClient::PanelClient(PacedPeer& peer, long baud, EmptyRead emptyRead)
    : m_directory(writePortList(m_folder, peer.device())),
      m_services{.gate = m_gate,
                 .waits = m_waits,
                 .files = m_files,
                 .help = m_help,
                 .programEnd = m_programEnd,
                 .processes = m_processes,
                 .ownFolder = {},
                 .makePort = [&peer, this, emptyRead](QObject*) -> std::unique_ptr<Port> {
                     if (emptyRead == EmptyRead::sleeps)
                         return std::make_unique<SleepingPort>(peer, m_directory, m_waits);
                     return std::make_unique<TimedPort>(peer, m_directory);
                 }},
      m_link(m_services, flavours::controlPanel, nullptr) {
    m_link.connection = {
        .port = port, .baudRate = std::to_string(baud), .deviceId = std::string(deviceId)};
}

void PanelClient::open() {
    if (!m_link.openPort())
        throw std::runtime_error("the panel cannot open its port: " +
                                 m_directory.lastFailure(port));
    m_link.setCommOK(true);
}

bool PanelClient::exchange() {
    const std::string answer = m_link.SendReceive(command);
    if (answer == noAnswer)
        return false;
    if (answer != position)
        throw std::runtime_error("the panel got the reply \"" + answer + "\"");
    return true;
}

}  // namespace zlt::bench
