#include "platform/win32/event_names.h"

#include <ocidl.h>

#include "platform/win32/class_identifier.h"
#include "platform/win32/text.h"
#include "platform/win32/variant.h"
#include "registered/classes.h"

namespace foliant::platform::win32 {
namespace {

using TypeInfo = ComPointer<ITypeInfo>;
using TypeLibrary = ComPointer<ITypeLib>;

/// The event-bound Distiller.
constexpr CLSID distiller_class = class_identifier(registered::event_bound_distiller);

const EventNames distiller_events{{1, "OnJobStart"},   {2, "OnJobDone"},     {3, "OnJobFail"},
                                  {4, "OnLogMessage"}, {5, "OnPercentDone"}, {6, "OnPageNumber"}};

/// The attributes of a type, given back when they go out of scope.
class TypeAttributes {
  public:
    explicit TypeAttributes(ITypeInfo& type) : type_(type) {
        if (FAILED(type.GetTypeAttr(&attributes_))) attributes_ = nullptr;
    }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    ~TypeAttributes() {
        if (attributes_ != nullptr) type_.ReleaseTypeAttr(attributes_);
    }
    explicit operator bool() const noexcept { return attributes_ != nullptr; }
    const TYPEATTR* operator->() const noexcept { return attributes_; }

  private:
    ITypeInfo& type_;
    TYPEATTR* attributes_ = nullptr;
};

std::string member_name(ITypeInfo& type, MEMBERID member) {
    BSTR name = nullptr;
    if (FAILED(type.GetDocumentation(member, &name, nullptr, nullptr, nullptr))) return {};
    std::string utf8 = from_bstr(name);
    SysFreeString(name);
    return utf8;
}

EventNames functions_of(ITypeInfo& type) {
    EventNames names;
    const TypeAttributes attributes(type);
    for (UINT i = 0; attributes && i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type.GetFuncDesc(i, &function))) continue;
        names.emplace(function->memid, member_name(type, function->memid));
        type.ReleaseFuncDesc(function);
    }
    return names;
}

/// The library of the interface that the object is used through.
TypeLibrary library_of(IDispatch& object) {
    TypeInfo type;
    TypeLibrary library;
    UINT index = 0;
    if (SUCCEEDED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, type.put())) && type)
        type->GetContainingTypeLib(library.put(), &index);
    return library;
}

std::wstring braces(const GUID& id) {
    wchar_t text[40] = {};
    StringFromGUID2(id, text, 40);
    return text;
}

std::wstring registered_text(const std::wstring& key) {
    wchar_t text[64] = {};
    LONG size = sizeof text;
    return RegQueryValueW(HKEY_CLASSES_ROOT, key.c_str(), text, &size) == ERROR_SUCCESS ? text : L"";
}

/// The library that `key` (of a class or an interface) names in the registry, in its newest version.
TypeLibrary registered_library(const std::wstring& key) {
    GUID library_id{};
    std::wstring library_text = registered_text(key + L"\\TypeLib");
    TypeLibrary library;
    if (library_text.empty() || FAILED(CLSIDFromString(library_text.data(), &library_id))) return library;
    constexpr WORD any_version = 0xFFFF;
    if (FAILED(LoadRegTypeLib(library_id, any_version, any_version, LOCALE_NEUTRAL, library.put())))
        LoadRegTypeLib(library_id, 1, 0, LOCALE_NEUTRAL, library.put());
    return library;
}

TypeInfo type_in(const TypeLibrary& library, const GUID& id) {
    TypeInfo type;
    if (library) library->GetTypeInfoOfGuid(id, type.put());
    return type;
}

/// The class of an object: what it says itself, else what the libraries say of `class_id`.
TypeInfo class_of(IDispatch& object, const std::optional<CLSID>& class_id) {
    TypeInfo type;
    const auto teller = ComPointer<IDispatch>::share(&object).as<IProvideClassInfo>(IID_IProvideClassInfo);
    if (teller && SUCCEEDED(teller->GetClassInfo(type.put())) && type) return type;
    if (!class_id) return {};
    type = type_in(library_of(object), *class_id);
    return type ? type : type_in(registered_library(L"CLSID\\" + braces(*class_id)), *class_id);
}

TypeInfo default_source(ITypeInfo& coclass) {
    constexpr INT wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
    const TypeAttributes attributes(coclass);
    TypeInfo source;
    for (UINT i = 0; attributes && i < attributes->cImplTypes; ++i) {
        INT flags = 0;
        HREFTYPE reference = 0;
        if (FAILED(coclass.GetImplTypeFlags(i, &flags)) || (flags & wanted) != wanted) continue;
        if (FAILED(coclass.GetRefTypeOfImplType(i, &reference))) continue;
        coclass.GetRefTypeInfo(reference, source.put());
        break;
    }
    return source;
}

}  // namespace

std::optional<SourceInterface> described_source(IDispatch& object, const std::optional<CLSID>& class_id) {
    const TypeInfo coclass = class_of(object, class_id);
    if (!coclass) return std::nullopt;
    const TypeInfo source = default_source(*coclass.get());
    if (!source) return std::nullopt;
    const TypeAttributes attributes(*source.get());
    if (!attributes) return std::nullopt;
    return SourceInterface{attributes->guid, functions_of(*source.get())};
}

EventNames names_of_source(IDispatch& object, const std::optional<CLSID>& class_id, const IID& id) {
    TypeInfo type = type_in(library_of(object), id);
    if (!type) type = type_in(registered_library(L"Interface\\" + braces(id)), id);
    if (type) return functions_of(*type.get());
    return class_id && IsEqualGUID(*class_id, distiller_class) ? distiller_events : EventNames{};
}

}  // namespace foliant::platform::win32
