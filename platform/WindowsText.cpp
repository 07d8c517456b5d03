#include "platform/WindowsText.h"

#include <windows.h>

#include <array>
#include <string_view>

namespace zlt {
namespace {

std::string utf8FromUtf16(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string utf8(text.size() * 3, '\0');
    const int written = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(),
                                            static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.resize(static_cast<std::size_t>(written));
    return utf8;
}

}  // namespace

std::string windowsErrorText(unsigned long error) {
    std::array<wchar_t, 512> words{};
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, words.data(), static_cast<DWORD>(words.size()), nullptr);
    std::wstring_view text(words.data(), length);
    text = text.substr(0, text.find_last_not_of(L" .\r\n") + 1);
    return text.empty() ? "Windows error " + std::to_string(error) : utf8FromUtf16(text);
}

}  // namespace zlt
