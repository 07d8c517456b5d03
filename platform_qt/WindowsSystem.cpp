#include <windows.h>
// After windows.h, whose types it needs.
#include <timeapi.h>

#include <QFileDevice>

#include "platform/WindowsText.h"
#include "platform_qt/ThisSystem.h"

namespace zlt {
namespace {

/// A plain Sleep(1) may last a tick of the system's clock, 15.6 ms. The drivers' time-outs count by
/// that clock too, so it is set to 1 ms as long as this stands.
class WindowsWaits final : public Waits {
 public:
    WindowsWaits() : m_precise(timeBeginPeriod(clockMs) == TIMERR_NOERROR) {}
    ~WindowsWaits() override {
        if (m_precise)
            timeEndPeriod(clockMs);
        if (m_timer)
            CloseHandle(m_timer);
    }
    WindowsWaits(const WindowsWaits&) = delete;
    WindowsWaits& operator=(const WindowsWaits&) = delete;

    void sleep(std::chrono::milliseconds time) override {
        LARGE_INTEGER due{};
        due.QuadPart = -10'000 * static_cast<LONGLONG>(time.count());  // from now, by 100 ns
        const bool set = m_timer && SetWaitableTimer(m_timer, &due, 0, nullptr, nullptr, FALSE);
        if (!set || WaitForSingleObject(m_timer, INFINITE) != WAIT_OBJECT_0)
            Sleep(static_cast<DWORD>(time.count()));
    }

 private:
    static constexpr UINT clockMs = 1;
    /// CREATE_WAITABLE_TIMER_HIGH_RESOLUTION, which Debian 12's headers do not have.
    static constexpr DWORD highResolution = 2;

    /// Null before Windows 10 1803.
    HANDLE m_timer =
        CreateWaitableTimerExW(nullptr, nullptr, highResolution, TIMER_MODIFY_STATE | SYNCHRONIZE);
    bool m_precise;
};

/// Starts other programs each in a window of its own, in front, into which it prints.
class WindowsProcesses final : public Processes {
 public:
    [[nodiscard]] std::filesystem::path fileOf(
        const std::filesystem::path& program) const override {
        std::filesystem::path file = program;
        return file += ".exe";
    }

    ProcessEnd runAndWait(const std::filesystem::path& program, const Started& started) override {
        const std::filesystem::path file = std::filesystem::path(program).make_preferred();
        std::wstring command = L'"' + file.native() + L'"';
        STARTUPINFOW window{};
        window.cb = sizeof window;
        window.dwFlags = STARTF_USESHOWWINDOW;
        window.wShowWindow = SW_SHOWNORMAL;
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(file.c_str(), command.data(), nullptr, nullptr, FALSE,
                            CREATE_NEW_CONSOLE, nullptr, nullptr, &window, &process))
            return {ProcessEnd::Kind::notStarted, windowsErrorText(GetLastError())};
        CloseHandle(process.hThread);
        started(process.dwProcessId);
        WaitForSingleObject(process.hProcess, INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(process.hProcess, &code);
        CloseHandle(process.hProcess);
        // What the system itself ends a program with, for a fault or a closed window.
        constexpr DWORD systemsOwnError = 0xC000'0000;
        return {code >= systemsOwnError ? ProcessEnd::Kind::crashed : ProcessEnd::Kind::exited};
    }
};

}  // namespace

std::unique_ptr<Waits> makeWaits() {
    return std::make_unique<WindowsWaits>();
}

std::unique_ptr<Processes> makeProcesses() {
    return std::make_unique<WindowsProcesses>();
}

std::optional<std::string> synchronise(const QFileDevice&) {
    // QSaveFile::commit() does so, and a full disk is told at writing.
    return std::nullopt;
}

}  // namespace zlt
