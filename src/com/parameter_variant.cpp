#include "com/parameter_variant.h"

#include <cstring>
#include <memory>
#include <ole2.h>
#include <string>

#include "automation/coerce.h"
#include "automation/error.h"
#include "automation/object.h"
#include "com/identifiers.h"
#include "platform/win32/dispatch_object.h"
#include "platform/win32/variant.h"

namespace foliant::com {

using automation::Access;
using automation::Error;
using automation::Missing;
using automation::ObjectPtr;
using automation::RuntimeError;
using automation::Value;
using platform::win32::DispatchObject;
using platform::win32::put_value;
using platform::win32::to_value;
using platform::win32::Variant;

namespace {

/// A script would take this many items for a mistake long before memory ends.
constexpr std::int32_t most_items = 1'000'000;

IDispatch* dispatch_in(const Value& value) noexcept {
    const auto* object = value.if_holds<ObjectPtr>();
    if (object == nullptr) return nullptr;
    const auto* outside = dynamic_cast<const DispatchObject*>(object->get());
    return outside == nullptr ? nullptr : outside->dispatch();
}

bool has_member(IDispatch& object, const wchar_t* name) {
    auto* text = const_cast<wchar_t*>(name);
    DISPID id = 0;
    return SUCCEEDED(object.GetIDsOfNames(IID_NULL, &text, 1, library_locale, &id));
}

Value default_property(IDispatch& object) {
    DISPPARAMS none{};
    Variant result;
    const HRESULT outcome =
        object.Invoke(DISPID_VALUE, IID_NULL, library_locale, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none,
                      result.get(), nullptr, nullptr);
    if (FAILED(outcome)) throw Error(RuntimeError::type_mismatch);
    const Value value = to_value(*result);
    if (value.holds<ObjectPtr>()) throw Error(RuntimeError::type_mismatch);
    return value;
}

/// A property of a script's object, empty when there is none. It is not asked for as a call as well: a script
/// host would then try to call the number or text that it holds.
Value property(IDispatch& object, std::wstring name) {
    LPOLESTR text = name.data();
    DISPID id = 0;
    if (FAILED(object.GetIDsOfNames(IID_NULL, &text, 1, library_locale, &id))) return {};
    DISPPARAMS none{};
    Variant result;
    const HRESULT outcome = object.Invoke(id, IID_NULL, library_locale, DISPATCH_PROPERTYGET, &none,
                                          result.get(), nullptr, nullptr);
    if (FAILED(outcome)) throw Error(RuntimeError::type_mismatch);
    return to_value(*result);
}

/// The items of a script's array object. Indices without an item are empty.
Value items_of(IDispatch& object) {
    const std::int32_t count = automation::to_int32(property(object, L"length"));
    if (count < 0 || count > most_items) throw Error(RuntimeError::type_mismatch);
    automation::Array array;
    for (std::int32_t index = 0; index < count; ++index)
        array.items.push_back(property(object, std::to_wstring(index)));
    return array;
}

Value any_value(Value value) {
    IDispatch* dispatch = dispatch_in(value);
    if (dispatch == nullptr || !has_member(*dispatch, L"length")) return value;
    return items_of(*dispatch);
}

template <class T>
Value as(const Value& value) {
    return core::to_value(core::from_value<T>(value));
}

Value plain_value(core::ValueType type, const Value& value) {
    using enum core::ValueType;
    switch (type) {
        case string:
            return as<std::string>(value);
        case boolean:
            return as<bool>(value);
        case integer:
            return as<std::int16_t>(value);
        case long_number:
        case align_type:
        case read_type:
            return as<std::int32_t>(value);
        case single:
            return as<float>(value);
        case double_number:
            return as<double>(value);
        case object:
            return as<ObjectPtr>(value);
        case variant:
            break;
    }
    return value;
}

/// Bytes of a plain type inside a variant.
std::size_t size_of(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return 1;
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return 2;
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return 4;
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_DATE:
        case VT_CY:
            return 8;
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        default:
            throw Error(RuntimeError::type_mismatch);
    }
}

void release_at(VARTYPE type, void* place) noexcept {
    VARIANT old{};
    old.vt = type;
    if (type != VT_BSTR && type != VT_DISPATCH && type != VT_UNKNOWN) return;
    std::memcpy(&old.byref, place, sizeof(void*));
    VariantClear(&old);
}

/// Replaces a variant as a whole; the old content goes last, since that may run code of the caller.
void replace(VARIANT& target, Variant& fresh) noexcept {
    Variant old;
    *old = target;
    target = *fresh;
    VariantInit(fresh.get());
}

void assign_plain(VARTYPE type, void* place, Variant& fresh) {
    const std::size_t size = size_of(type);
    const HRESULT outcome =
        VariantChangeTypeEx(fresh.get(), fresh.get(), library_locale, VARIANT_ALPHABOOL, type);
    if (outcome == DISP_E_OVERFLOW) throw Error(RuntimeError::overflow);
    if (FAILED(outcome)) throw Error(RuntimeError::type_mismatch);
    char old[sizeof(LONGLONG)];
    std::memcpy(old, place, size);
    std::memcpy(place, &fresh->llVal, size);
    VariantInit(fresh.get());
    release_at(type, old);
}

}  // namespace

Value as_parameter(core::ValueType type, const VARIANT& given) {
    Value value = to_value(given);
    if (value.holds<Missing>()) return value;
    if (type == core::ValueType::variant) return any_value(std::move(value));
    IDispatch* dispatch = type == core::ValueType::object ? nullptr : dispatch_in(value);
    return plain_value(type, dispatch == nullptr ? value : default_property(*dispatch));
}

void assign(VARIANT& reference, const Value& value) {
    if ((reference.vt & VT_BYREF) == 0 || reference.byref == nullptr) return;
    const auto type = static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
    if (type == VT_VARIANT && (reference.pvarVal->vt & VT_BYREF) != 0) {
        if (reference.pvarVal->vt != (VT_BYREF | VT_VARIANT)) assign(*reference.pvarVal, value);
        return;
    }
    Variant fresh;
    put_value(value, *fresh);
    if (type == VT_VARIANT) {
        replace(*reference.pvarVal, fresh);
    } else {
        assign_plain(type, reference.byref, fresh);
    }
}

}  // namespace foliant::com
