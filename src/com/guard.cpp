#include "com/guard.h"

#include <ole2.h>
#include <string_view>

#include "com/identifiers.h"
#include "platform/win32/com_pointer.h"
#include "platform/win32/variant.h"
#include "session/errors.h"

namespace foliant::com {

using automation::Error;
using platform::win32::Bstr;
using platform::win32::ComPointer;

namespace {

constexpr std::int32_t largest_runtime_error = 0xFFFF;
constexpr auto runtime_error_base = static_cast<HRESULT>(0x800A0000);

BSTR text_or_null(std::string_view text) noexcept {
    try {
        return Bstr(text).release();
    } catch (...) {
        return nullptr;
    }
}

std::string_view source_of(const Error& error) noexcept {
    return error.source().empty() ? session::application_title : std::string_view(error.source());
}

}  // namespace

HRESULT hresult_of(const Error& error) noexcept {
    const std::int32_t number = error.number();
    if (number > 0 && number <= largest_runtime_error) return runtime_error_base + number;
    return number < 0 ? number : E_FAIL;
}

void describe(const Error& error, EXCEPINFO& info) noexcept {
    info = {};
    info.scode = hresult_of(error);
    info.bstrSource = text_or_null(source_of(error));
    info.bstrDescription = text_or_null(error.description());
}

HRESULT set_error_info(const Error& error) noexcept {
    ComPointer<ICreateErrorInfo> created;
    if (SUCCEEDED(CreateErrorInfo(created.put()))) {
        EXCEPINFO info{};
        describe(error, info);
        created->SetGUID(interface_id);
        created->SetSource(info.bstrSource);
        created->SetDescription(info.bstrDescription);
        SysFreeString(info.bstrSource);
        SysFreeString(info.bstrDescription);
        SetErrorInfo(0, created.as<IErrorInfo>(IID_IErrorInfo).get());
    }
    return hresult_of(error);
}

HRESULT fail_with_error_info() noexcept {
    return set_error_info(automation::current_error());
}

}  // namespace foliant::com
