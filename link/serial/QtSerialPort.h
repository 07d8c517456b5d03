#pragma once

#include <QSerialPort>

#include "link/Port.h"
#include "link/serial/LineClaim.h"
#include "link/serial/PortDirectory.h"

namespace zlt {

/// The real port but on Windows, on Qt's serial port. Behaviour relied on is that of Qt 6.4: a wait
/// that fails without being a time-out is a lost port, and the error text of that moment says
/// nothing.
class QtSerialPort final : public Port {
 public:
    /// `directory` says which device a port number stands for; it outlives the port. So does
    /// `owner`, among whose children Qt's own port is then found by its name, `MSComm1`.
    explicit QtSerialPort(PortDirectory& directory, QObject* owner = nullptr);

    bool open(PortNumber number, std::string_view baudRate) override;
    void close() override;
    [[nodiscard]] bool isOpen() const override { return m_serial.isOpen(); }
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
    void openDevice(const std::string& device, qint32 baudRate);
    /// Whether opening `device` failed because another program holds it.
    [[nodiscard]] bool heldByAnother(const std::string& device) const;
    /// Waits up to `milliseconds`; false when the port is lost, which closes it.
    bool waitForBytes(int milliseconds);
    /// Closes the port and keeps the reason.
    void lose(std::string reason);

    PortDirectory& m_directory;
    LineClaim m_claim;
    QSerialPort m_serial;
    std::string m_device;
    std::string m_errorText;
    std::string m_remark;
};

}  // namespace zlt
