#include "platform/win32/windows_servers.h"

#include <ole2.h>
#include <string>

#include "automation/error.h"
#include "platform/win32/dispatch_object.h"
#include "platform/win32/text.h"

namespace foliant::platform::win32 {
namespace {

[[noreturn]] void fail() {
    throw automation::Error(automation::RuntimeError::cannot_create_object);
}

CLSID class_id_of(std::string_view class_name) {
    const std::wstring name = to_utf16(class_name);
    CLSID id{};
    const bool braces = class_name.starts_with('{');
    if (FAILED(braces ? CLSIDFromString(name.c_str(), &id) : CLSIDFromProgID(name.c_str(), &id))) fail();
    return id;
}

}  // namespace

automation::ObjectPtr WindowsServers::create(std::string_view class_name) {
    const CLSID id = class_id_of(class_name);
    ComPointer<IUnknown> created;
    if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IUnknown,
                                created.put_void())))
        fail();
    // A server that embeds documents has to be told to run; the others pass this over.
    OleRun(created.get());
    auto dispatch = created.as<IDispatch>(IID_IDispatch);
    if (!dispatch) fail();
    return std::make_shared<DispatchObject>(std::move(dispatch), id);
}

}  // namespace foliant::platform::win32
