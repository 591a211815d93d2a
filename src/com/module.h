#pragma once

#include <oaidl.h>
#include <string>

#include "platform/win32/com_pointer.h"

/// The loaded library as a whole.
namespace foliant::com::module {

/// Counts one object, or one lock of the class factory, that keeps the library loaded.
class Living {
  public:
    Living() noexcept;
    Living(const Living&) = delete;
    Living& operator=(const Living&) = delete;
    ~Living();
};

void lock() noexcept;
void unlock() noexcept;
bool is_unused() noexcept;

/// The library's own file. Raises 53 when the system does not say.
std::wstring file_name();

/// The type library inside the library's own file; raises what the system says when it cannot be read.
platform::win32::ComPointer<ITypeLib> type_library();

/// One type of that library.
platform::win32::ComPointer<ITypeInfo> type_information(const GUID& id);

}  // namespace foliant::com::module
