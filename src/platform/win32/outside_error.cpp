#include "platform/win32/outside_error.h"

#include <cstdio>
#include <utility>

#include "platform/win32/text.h"
#include "platform/win32/variant.h"

namespace foliant::platform::win32 {

using automation::Error;
using automation::RuntimeError;

namespace {

/// The run-time error number that a result carries, else the result itself.
std::int32_t number_of(HRESULT result) {
    constexpr std::uint32_t runtime_errors = 0x800A0000;
    const auto bits = static_cast<std::uint32_t>(result);
    const bool is_runtime_error = (bits & 0xFFFF0000U) == runtime_errors && bits != runtime_errors;
    return is_runtime_error ? static_cast<std::int32_t>(bits & 0xFFFFU) : static_cast<std::int32_t>(result);
}

std::string usual_text(HRESULT result, std::int32_t number) {
    if (number > 0) return std::string(automation::usual_description(static_cast<RuntimeError>(number)));
    return system_text(result);
}

std::string take(BSTR& text) {
    std::string utf8 = from_bstr(text);
    SysFreeString(std::exchange(text, nullptr));
    return utf8;
}

}  // namespace

std::string system_text(HRESULT result) {
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::string text = length == 0 ? std::string() : to_utf8(std::wstring_view(buffer, length));
    LocalFree(buffer);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' '))
        text.pop_back();
    if (!text.empty()) return text;
    char plain[40];
    std::snprintf(plain, sizeof plain, "Automation error (%08lX)", static_cast<unsigned long>(result));
    return plain;
}

Error error_of(HRESULT result) {
    const std::int32_t number = number_of(result);
    return {number, "", usual_text(result, number)};
}

Error error_of(EXCEPINFO& raised) {
    if (raised.pfnDeferredFillIn != nullptr) raised.pfnDeferredFillIn(&raised);
    const HRESULT result = raised.scode != 0 ? raised.scode : DISP_E_EXCEPTION;
    const std::int32_t number = raised.wCode != 0 ? raised.wCode : number_of(result);
    std::string source = take(raised.bstrSource);
    std::string description = take(raised.bstrDescription);
    SysFreeString(std::exchange(raised.bstrHelpFile, nullptr));
    if (description.empty()) description = usual_text(result, number);
    return {number, std::move(source), std::move(description)};
}

}  // namespace foliant::platform::win32
