#include "windows/com/component.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "com/identifiers.h"

namespace foliant::com {

std::wstring Component::path() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetFullPathNameW(FOLIANT_DLL, MAX_PATH, path.data(), nullptr));
    return path;
}

Component::Component(const std::wstring& path) : library_(LoadLibraryW(path.c_str())) {
    if (library_ == nullptr) throw std::runtime_error("Foliant.dll cannot be loaded");
}

Component::~Component() {
    FreeLibrary(library_);
}

template <class Function>
Function Component::function(const char* name) const {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
}

ComPointer<IClassFactory> Component::factory() const {
    ComPointer<IClassFactory> factory;
    function<HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(
        class_id, IID_IClassFactory, factory.put_void());
    return factory;
}

ComPointer<IDispatch> Component::create() const {
    ComPointer<IDispatch> object;
    factory()->CreateInstance(nullptr, IID_IDispatch, object.put_void());
    return object;
}

bool Component::can_unload() const {
    return function<HRESULT(STDMETHODCALLTYPE*)()>("DllCanUnloadNow")() == S_OK;
}
HRESULT Component::register_server() const {
    return function<HRESULT(STDMETHODCALLTYPE*)()>("DllRegisterServer")();
}
HRESULT Component::unregister_server() const {
    return function<HRESULT(STDMETHODCALLTYPE*)()>("DllUnregisterServer")();
}

VARIANT value(BSTR text) {
    VARIANT variant{};
    variant.vt = VT_BSTR;
    variant.bstrVal = text;
    return variant;
}
VARIANT value(long number) {
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}
VARIANT missing() {
    VARIANT variant{};
    variant.vt = VT_ERROR;
    variant.scode = DISP_E_PARAMNOTFOUND;
    return variant;
}
VARIANT reference(VARTYPE type, void* variable) {
    VARIANT variant{};
    variant.vt = static_cast<VARTYPE>(VT_BYREF | type);
    variant.byref = variable;
    return variant;
}

DISPID dispid_of(IDispatch& object, std::wstring name) {
    LPOLESTR text = name.data();
    DISPID id = 0;
    return SUCCEEDED(object.GetIDsOfNames(IID_NULL, &text, 1, library_locale, &id)) ? id : DISPID_UNKNOWN;
}

void call(IDispatch& object, const std::wstring& member, const std::vector<VARIANT>& arguments,
          Outcome& outcome, std::vector<std::wstring> names, WORD flags) {
    std::vector<std::wstring> spoken{member};
    spoken.insert(spoken.end(), names.rbegin(), names.rend());
    std::vector<LPOLESTR> texts;
    for (std::wstring& name : spoken)
        texts.push_back(name.data());
    std::vector<DISPID> ids(texts.size());
    outcome.code = object.GetIDsOfNames(IID_NULL, texts.data(), static_cast<UINT>(texts.size()),
                                        library_locale, ids.data());
    if (FAILED(outcome.code)) return;
    std::vector<VARIANT> sent(arguments);
    std::reverse(sent.begin(), sent.end());
    DISPID put = DISPID_PROPERTYPUT;
    const bool assigns = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{sent.data(), assigns ? &put : ids.data() + 1, static_cast<UINT>(sent.size()),
                          assigns ? 1 : static_cast<UINT>(names.size())};
    EXCEPINFO failure{};
    outcome.code = object.Invoke(ids[0], IID_NULL, library_locale, flags, &parameters, outcome.result.put(),
                                 &failure, nullptr);
    if (outcome.code == DISP_E_EXCEPTION) {
        char number[9];
        std::snprintf(number, sizeof number, "%08lX", static_cast<unsigned long>(failure.scode));
        outcome.error = std::string(number) + " " + platform::win32::from_bstr(failure.bstrSource) + ": " +
                        platform::win32::from_bstr(failure.bstrDescription);
    }
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
}

}  // namespace foliant::com
