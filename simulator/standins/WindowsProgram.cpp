#include <windows.h>

#include <system_error>

#include "simulator/standins/OwnProgram.h"

namespace zlt::standins {

std::filesystem::path ownProgram() {
    constexpr DWORD longestPath = 32768;
    std::wstring name(longestPath, L'\0');
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), longestPath);
    if (length == 0 || length == longestPath)
        throw std::filesystem::filesystem_error(
            "the program's own name",
            std::error_code(static_cast<int>(GetLastError()), std::system_category()));
    name.resize(length);
    return name;
}

}  // namespace zlt::standins
