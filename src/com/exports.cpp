// The four functions that Windows finds by name (foliant.def).

#include <olectl.h>

#include "com/class_factory.h"
#include "com/guard.h"
#include "com/identifiers.h"
#include "com/module.h"
#include "com/registration.h"

using namespace foliant::com;  // NOLINT(google-build-using-namespace): these functions are its outside

extern "C" {

HRESULT STDMETHODCALLTYPE DllGetClassObject(REFCLSID wanted, REFIID id, void** object) noexcept {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (wanted != class_id) return CLASS_E_CLASSNOTAVAILABLE;
    return guarded([&] {
        const auto factory = foliant::platform::win32::ComPointer<ClassFactory>::adopt(new ClassFactory);
        return factory->QueryInterface(id, object);
    });
}

HRESULT STDMETHODCALLTYPE DllCanUnloadNow() noexcept {
    return module::is_unused() ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE DllRegisterServer() noexcept {
    return guarded([] {
        register_component(module::file_name());
        return S_OK;
    });
}

HRESULT STDMETHODCALLTYPE DllUnregisterServer() noexcept {
    return guarded([] {
        unregister_component();
        return S_OK;
    });
}

}  // extern "C"
