#include "link/serial/WindowsPort.h"

#include <windows.h>

#include <algorithm>

#include "link/serial/SystemPort.h"
#include "platform/Files.h"
#include "platform/WindowsText.h"

namespace zlt {
namespace {

/// Characters of a line that babbles while nobody asks are kept up to here, as far as the driver
/// goes along.
constexpr DWORD unreadBytesKept = 64 * 1024;

}  // namespace

std::string openingFailure(unsigned long error, const std::string& device) {
    switch (error) {
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
            return "In use by another program; Windows does not tell by which";
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return "There is no " + device + " now";
        default:
            return windowsErrorText(error);
    }
}

bool WindowsPort::open(PortNumber number, std::string_view baudRate) {
    close();
    m_errorText.clear();
    m_remark.clear();
    if (const auto line = lineSettings(m_directory, number, baudRate, m_errorText))
        openDevice(*line);
    m_directory.noteOpening(number, {.failure = m_errorText, .remark = m_remark});
    return isOpen();
}

void WindowsPort::openDevice(const LineSettings& line) {
    m_device = line.device;
    // By its bare name COM10 and above are not found.
    const auto path = pathFromUtf8("\\\\.\\" + line.device);
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return lose(openingFailure(GetLastError(), line.device));
    m_handle = handle;
    if (!setUp(line.baudRate))
        return lose();
    DCB settings{};
    settings.DCBlength = sizeof settings;
    if (GetCommState(m_handle, &settings))
        m_remark = rateRemark(line.baudRate, static_cast<int>(settings.BaudRate));
    PurgeComm(m_handle, PURGE_RXCLEAR);  // what came before is no answer to anything
}

bool WindowsPort::setUp(int baudRate) {
    DCB settings{};
    settings.DCBlength = sizeof settings;
    if (!GetCommState(m_handle, &settings))
        return false;
    settings.BaudRate = static_cast<DWORD>(baudRate);
    settings.ByteSize = 8;
    settings.Parity = NOPARITY;
    settings.StopBits = ONESTOPBIT;
    settings.fBinary = TRUE;
    settings.fParity = FALSE;
    settings.fDtrControl = DTR_CONTROL_DISABLE;
    settings.fRtsControl = RTS_CONTROL_ENABLE;  // as elsewhere: some adapters live on it
    settings.fOutxCtsFlow = FALSE;
    settings.fOutxDsrFlow = FALSE;
    settings.fDsrSensitivity = FALSE;
    settings.fOutX = FALSE;
    settings.fInX = FALSE;
    settings.fNull = FALSE;
    settings.fErrorChar = FALSE;
    settings.fAbortOnError = FALSE;  // a garbled character must not stop the line
    SetupComm(m_handle, unreadBytesKept, unreadBytesKept);
    m_readWait = 0;
    return SetCommState(m_handle, &settings) && setReadWait(1);
}

bool WindowsPort::setReadWait(Milliseconds time) {
    if (time == m_readWait)
        return true;
    // Both MAXDWORD: what is there at once, else the first character within the constant.
    COMMTIMEOUTS timeouts{.ReadIntervalTimeout = MAXDWORD,
                          .ReadTotalTimeoutMultiplier = MAXDWORD,
                          .ReadTotalTimeoutConstant = time,
                          .WriteTotalTimeoutMultiplier = 0,
                          .WriteTotalTimeoutConstant = blockedOutputMs};
    if (!SetCommTimeouts(m_handle, &timeouts))
        return false;
    m_readWait = time;
    return true;
}

void WindowsPort::close() {
    if (m_handle)
        CloseHandle(m_handle);
    m_handle = nullptr;
    m_next = m_fetched = 0;
}

void WindowsPort::lose(std::string reason) {
    m_errorText = std::move(reason);
    close();
}

void WindowsPort::lose() {
    lose(windowsErrorText(GetLastError()));
}

bool WindowsPort::write(std::string_view bytes) {
    if (!isOpen()) {
        if (m_errorText.empty())
            m_errorText = "The port is not open";
        return false;
    }
    while (isOpen() && !bytes.empty()) {
        DWORD written = 0;
        if (!WriteFile(m_handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
            lose();
        else if (written == 0)
            lose(std::string(outputBlocked));
        bytes.remove_prefix(written);
    }
    return isOpen();
}

std::optional<unsigned long> WindowsPort::waiting() {
    DWORD errors = 0;
    COMSTAT status{};
    if (ClearCommError(m_handle, &errors, &status))
        return status.cbInQue;
    lose();
    return std::nullopt;
}

bool WindowsPort::fetch(unsigned long count) {
    DWORD fetched = 0;
    m_next = m_fetched = 0;
    const auto most = std::min(count, static_cast<DWORD>(m_bytes.size()));
    if (ReadFile(m_handle, m_bytes.data(), most, &fetched, nullptr))
        m_fetched = fetched;
    else
        lose();
    return isOpen();
}

PortInput WindowsPort::read(char& character) {
    if (!isOpen())
        return PortInput::lost;
    if (!anyFetched()) {
        const auto count = waiting();
        if (!count || (*count > 0 && !fetch(*count)))
            return PortInput::lost;
    }
    if (!anyFetched())
        return PortInput::nothing;
    character = m_bytes[m_next++];
    return PortInput::character;
}

PortInput WindowsPort::waitForInput(std::chrono::milliseconds time) {
    if (!isOpen())
        return PortInput::lost;
    if (anyFetched())
        return PortInput::character;
    const auto wait = static_cast<Milliseconds>(std::max<long long>(time.count(), 1));
    if (!setReadWait(wait)) {
        lose();
        return PortInput::lost;
    }
    // One alone: Wine would wait for as many as it is asked for.
    if (!fetch(1))
        return PortInput::lost;
    return anyFetched() ? PortInput::character : PortInput::nothing;
}

std::unique_ptr<Port> makeSystemPort(PortDirectory& directory) {
    return std::make_unique<WindowsPort>(directory);
}

}  // namespace zlt
