#include "link/serial/QtSerialPort.h"

#include <QElapsedTimer>
#include <QFile>
#include <system_error>

#include "link/serial/LineClaim.h"
#include "link/serial/LineSettings.h"
#include "link/serial/PortUsers.h"
#include "link/serial/SerialHandle.h"
#include "link/serial/SystemPort.h"

namespace zlt {
namespace {

/// Unread bytes of a line that babbles between exchanges are kept up to here.
constexpr qint64 unreadBytesKept = 64 * 1024;

/// The system's own words for a device that went away.
std::string inputOutputError() {
    return std::make_error_code(std::errc::io_error).message();
}

std::string deviceBusy() {
    return std::make_error_code(std::errc::device_or_resource_busy).message();
}

/// Whether it can be seen that another program holds a device, and so when it does no more.
bool isSeenHeld(const std::string& device) {
    return lockFileOf(device) || !otherUsersOf(device).empty();
}

}  // namespace

QtSerialPort::QtSerialPort(PortDirectory& directory, QObject* owner)
    : m_directory(directory), m_serial(owner) {
    m_serial.setObjectName(QStringLiteral("MSComm1"));
    m_serial.setReadBufferSize(unreadBytesKept);
    // A port left open on an idle screen would otherwise spin after a hang-up.
    QObject::connect(&m_serial, &QSerialPort::errorOccurred, &m_serial,
                     [this](QSerialPort::SerialPortError error) {
                         const bool harmless = error == QSerialPort::NoError ||
                                               error == QSerialPort::TimeoutError ||
                                               error == QSerialPort::UnsupportedOperationError;
                         if (!harmless && m_serial.isOpen())
                             lose(inputOutputError());
                     });
}

bool QtSerialPort::open(PortNumber number, std::string_view baudRate) {
    close();
    m_errorText.clear();
    m_remark.clear();
    const auto line = lineSettings(m_directory, number, baudRate, m_errorText);
    if (line)
        openDevice(line->device, line->baudRate);
    const bool held = line && m_errorText == deviceBusy();
    m_directory.noteOpening(number, {.failure = m_errorText,
                                     .holderSeen = held && isSeenHeld(line->device),
                                     .remark = m_remark});
    return isOpen();
}

void QtSerialPort::openDevice(const std::string& device, qint32 baudRate) {
    // One name for one device, so that the lock file of a link's target is met too.
    const std::string path = canonicalDevice(device);
    m_device = path == device ? device : device + " (" + path + ")";
    if (!m_claim.take(path))
        return lose(deviceBusy());
    m_serial.setPortName(QFile::decodeName(path.c_str()));
    m_serial.setDataBits(QSerialPort::Data8);
    m_serial.setParity(QSerialPort::NoParity);
    m_serial.setStopBits(QSerialPort::OneStop);
    m_serial.setFlowControl(QSerialPort::NoFlowControl);
    if (!m_serial.open(QIODevice::ReadWrite) || !m_serial.setBaudRate(baudRate))
        return lose(heldByAnother(path) ? deviceBusy() : m_serial.errorString().toStdString());
    askForLowLatency(m_serial.handle());
    if (const auto real = baudRateInUse(m_serial.handle()))
        m_remark = rateRemark(baudRate, *real);
    m_serial.setDataTerminalReady(false);  // a pseudo-terminal has no such line: no error
    m_serial.clear();                      // what came before is no answer to anything
}

bool QtSerialPort::heldByAnother(const std::string& device) const {
    // Qt calls another program's lock file a matter of permission too.
    return m_serial.error() == QSerialPort::PermissionError && mayReadAndWrite(device);
}

void QtSerialPort::close() {
    if (m_serial.isOpen())
        m_serial.close();
    m_claim.release();
}

void QtSerialPort::lose(std::string reason) {
    m_errorText = std::move(reason);
    close();
}

bool QtSerialPort::write(std::string_view bytes) {
    if (!isOpen()) {
        if (m_errorText.empty())
            m_errorText = "The port is not open";
        return false;
    }
    m_serial.write(bytes.data(), static_cast<qint64>(bytes.size()));
    QElapsedTimer sinceProgress;
    sinceProgress.start();
    for (qint64 left = m_serial.bytesToWrite(); isOpen() && left > 0;) {
        // While the read buffer is full Qt's wait fails at once, for want of room to read into.
        const bool written = m_serial.bytesAvailable() >= unreadBytesKept
                                 ? m_serial.flush()
                                 : m_serial.waitForBytesWritten(blockedOutputMs);
        if (!isOpen())
            break;
        if (!written && m_serial.error() != QSerialPort::TimeoutError) {
            lose(inputOutputError());
            break;
        }
        const qint64 now = m_serial.bytesToWrite();
        if (now < left)
            sinceProgress.restart();
        else if (sinceProgress.hasExpired(blockedOutputMs))
            lose(std::string(outputBlocked));
        left = now;
    }
    return isOpen();
}

PortInput QtSerialPort::read(char& character) {
    if (!isOpen())
        return PortInput::lost;
    if (m_serial.bytesAvailable() == 0 && !waitForBytes(0))
        return PortInput::lost;
    return m_serial.read(&character, 1) == 1 ? PortInput::character : PortInput::nothing;
}

PortInput QtSerialPort::waitForInput(std::chrono::milliseconds time) {
    if (!isOpen() || !waitForBytes(static_cast<int>(time.count())))
        return PortInput::lost;
    return m_serial.bytesAvailable() > 0 ? PortInput::character : PortInput::nothing;
}

bool QtSerialPort::waitForBytes(int milliseconds) {
    if (m_serial.waitForReadyRead(milliseconds) || m_serial.bytesAvailable() > 0)
        return true;
    if (isOpen() && m_serial.error() == QSerialPort::TimeoutError)
        return true;
    lose(inputOutputError());
    return false;
}

std::unique_ptr<Port> makeSystemPort(PortDirectory& directory) {
    return std::make_unique<QtSerialPort>(directory);
}

}  // namespace zlt
