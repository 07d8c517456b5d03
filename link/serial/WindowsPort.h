#pragma once

#include <array>

#include "link/Port.h"
#include "link/serial/LineSettings.h"
#include "link/serial/PortDirectory.h"

namespace zlt {

/// Why a port did not open, by Windows' error and the port's name, UTF-8: in use and absent are two
/// matters, and no rights come into it.
std::string openingFailure(unsigned long error, const std::string& device);

/// The real port on Windows, on the system's own calls. An empty read waits in the driver itself,
/// which a character ends at once. Opening is exclusive by itself.
class WindowsPort final : public Port {
 public:
    /// `directory` says which device a port number stands for; it outlives the port.
    explicit WindowsPort(PortDirectory& directory) : m_directory(directory) {}
    ~WindowsPort() override { close(); }
    WindowsPort(const WindowsPort&) = delete;
    WindowsPort& operator=(const WindowsPort&) = delete;

    bool open(PortNumber number, std::string_view baudRate) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override { return m_handle != nullptr; }
    bool write(std::string_view bytes) override;
    PortInput read(char& character) override;
    PortInput waitForInput(std::chrono::milliseconds time) override;
    [[nodiscard]] bool numberStillMeant(PortNumber number) const override {
        return m_directory.numberStillMeant(number);
    }
    [[nodiscard]] std::string device() const override { return m_device; }
    [[nodiscard]] std::string remark() const override { return m_remark; }
    [[nodiscard]] std::string errorText() const override { return m_errorText; }

 private:
    using Milliseconds = unsigned long;

    void openDevice(const LineSettings& line);
    /// 8 data bits, no parity, 1 stop bit, DTR off, no flow control. False when that fails.
    bool setUp(int baudRate);
    /// How long reading waits for a first character; at least 1.
    bool setReadWait(Milliseconds time);
    /// How many characters the driver has; nothing when the port is lost, which closes it.
    std::optional<unsigned long> waiting();
    /// Takes up to `count` characters that the driver has, or the first that comes within the read
    /// wait. False when the port is lost, which closes it.
    bool fetch(unsigned long count);
    [[nodiscard]] bool anyFetched() const { return m_next < m_fetched; }
    /// Closes the port and keeps the reason, or the system's words for the error that it has now.
    void lose(std::string reason);
    void lose();

    PortDirectory& m_directory;
    void* m_handle = nullptr;
    Milliseconds m_readWait = 0;
    std::array<char, 4096> m_bytes{};
    std::size_t m_next = 0, m_fetched = 0;  ///< those between are still to be read
    std::string m_device;
    std::string m_errorText;
    std::string m_remark;
};

}  // namespace zlt
