#pragma once

#include <initializer_list>
#include <ole2.h>
#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/com_pointer.h"
#include "platform/win32/variant.h"

namespace foliant::com {

using platform::win32::ComPointer;
using platform::win32::Variant;

/// Foliant.dll as a client process has it: loaded, and asked through its exported functions. The registry
/// takes no part in it.
class Component {
  public:
    /// Loads the library that the build has made, or a copy of it.
    explicit Component(const std::wstring& path = Component::path());
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    ~Component();

    ComPointer<IDispatch> create() const;
    ComPointer<IClassFactory> factory() const;
    bool can_unload() const;
    HRESULT register_server() const;
    HRESULT unregister_server() const;
    static std::wstring path();

  private:
    template <class Function>
    Function function(const char* name) const;

    HMODULE library_;
};

/// What a late-bound call came to.
struct Outcome {
    HRESULT code = S_OK;
    std::string error;  ///< "80004100 Foliant: File x does not exist.", or "" for success
    Variant result;
};

/// A by-value argument; texts and objects stay the caller's.
VARIANT value(BSTR text);
VARIANT value(long number);
VARIANT missing();
VARIANT reference(VARTYPE type, void* variable);

DISPID dispid_of(IDispatch& object, std::wstring name);

/// Calls with positional arguments in order, and `names` for the last ones.
void call(IDispatch& object, const std::wstring& member, const std::vector<VARIANT>& arguments,
          Outcome& outcome, std::vector<std::wstring> names = {}, WORD flags = DISPATCH_METHOD);

}  // namespace foliant::com
