#include "sender/win32/message.h"

#include <array>

namespace foliant::sender::win32 {
namespace {

constexpr UINT answer_limit_ms = 1000;
constexpr std::size_t longest_label = 512;

}  // namespace

std::optional<LRESULT> ask(HWND window, UINT message, WPARAM first, LPARAM second) {
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, answer_limit_ms, &answer) == 0)
        return std::nullopt;
    return static_cast<LRESULT>(answer);
}

std::string to_utf8(std::wstring_view text) {
    if (text.empty()) return {};
    const auto units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

std::wstring to_utf16(std::string_view text) {
    if (text.empty()) return {};
    const auto bytes = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0);
    std::wstring utf16(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, utf16.data(), size);
    return utf16;
}

std::string caption_of(HWND window) {
    std::array<wchar_t, longest_label> text{};
    const int units = InternalGetWindowText(window, text.data(), static_cast<int>(text.size()));
    return to_utf8({text.data(), static_cast<std::size_t>(units)});
}

std::string class_of(HWND window) {
    std::array<wchar_t, 256> name{};
    const int units = GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    return to_utf8({name.data(), static_cast<std::size_t>(units)});
}

std::string label_of(HWND control) {
    std::array<wchar_t, longest_label> text{};
    const auto units = ask(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    // The answer is the control's own; what lies before the NUL is the text.
    return units ? to_utf8(text.data()) : std::string();
}

}  // namespace foliant::sender::win32
