#include "platform/win32/variant.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <type_traits>

#include "automation/array_bounds.h"
#include "automation/error.h"
#include "platform/win32/dispatch_object.h"
#include "platform/win32/text.h"

namespace foliant::platform::win32 {

using automation::Array;
using automation::ArrayPtr;
using automation::Empty;
using automation::Error;
using automation::Missing;
using automation::Null;
using automation::ObjectPtr;
using automation::RuntimeError;
using automation::Value;

namespace {

[[noreturn]] void mismatch() {
    throw Error(RuntimeError::type_mismatch);
}

void check(HRESULT result) {
    if (SUCCEEDED(result)) return;
    if (result == E_OUTOFMEMORY) throw Error(RuntimeError::out_of_memory);
    if (result == DISP_E_OVERFLOW) throw Error(RuntimeError::overflow);
    mismatch();
}

template <class Integer>
Value from_integer(Integer number) {
    if (std::in_range<std::int32_t>(number)) return static_cast<std::int32_t>(number);
    return static_cast<double>(number);
}

Value from_dispatch(IDispatch* dispatch) {
    if (dispatch == nullptr) return ObjectPtr();
    return std::make_shared<DispatchObject>(ComPointer<IDispatch>::share(dispatch));
}

Value from_unknown(IUnknown* unknown) {
    if (unknown == nullptr) return ObjectPtr();
    auto dispatch = ComPointer<IUnknown>::share(unknown).as<IDispatch>(IID_IDispatch);
    if (!dispatch) mismatch();
    return std::make_shared<DispatchObject>(std::move(dispatch));
}

Value from_decimal(DECIMAL decimal) {
    double number = 0;
    check(VarR8FromDec(&decimal, &number));
    return number;
}

Value from_currency(CY currency) {
    double number = 0;
    check(VarR8FromCy(currency, &number));
    return number;
}

/// One element, fetched as its type is stored and dressed as a variant.
Value stored_element(SAFEARRAY& array, VARTYPE type, LONG index) {
    Variant element;
    if (type == VT_VARIANT) {
        check(SafeArrayGetElement(&array, &index, element.get()));
    } else if (type == VT_DECIMAL) {
        DECIMAL decimal{};
        check(SafeArrayGetElement(&array, &index, &decimal));
        return from_decimal(decimal);
    } else {
        check(SafeArrayGetElement(&array, &index, &element->llVal));
        element->vt = type;
    }
    return to_value(*element);
}

/// The same; one without a counterpart stands as missing, which raises 13 where it is used, and not before.
Value element_of(SAFEARRAY& array, VARTYPE type, LONG index) {
    try {
        return stored_element(array, type, index);
    } catch (const Error& error) {
        if (!error.is(RuntimeError::type_mismatch)) throw;
        return Missing{};
    }
}

Value from_array(SAFEARRAY* array, VARTYPE type) {
    if (array == nullptr || SafeArrayGetDim(array) != 1) return automation::array_without_bounds();
    // The array knows best what it holds, when it says.
    if (VARTYPE own = VT_EMPTY; SUCCEEDED(SafeArrayGetVartype(array, &own))) type = own;
    const bool fits =
        type == VT_VARIANT || type == VT_DECIMAL || SafeArrayGetElemsize(array) <= sizeof(LONGLONG);
    if (!fits) mismatch();
    LONG lower = 0;
    LONG upper = 0;
    check(SafeArrayGetLBound(array, 1, &lower));
    check(SafeArrayGetUBound(array, 1, &upper));
    Array result;
    result.lower_bound = lower;
    result.element = type == VT_BSTR ? Array::Element::text : Array::Element::any;
    for (std::int64_t index = lower; index <= upper; ++index)
        result.items.push_back(element_of(*array, type, static_cast<LONG>(index)));
    return result;
}

Value from_error(SCODE code) {
    if (code == DISP_E_PARAMNOTFOUND) return Missing{};
    mismatch();
}

/// The value of a plain type; `data` is where a variant of that type has it.
Value from_plain(VARTYPE type, const void* data) {
    const auto at = [data](auto sample) { return *static_cast<const decltype(sample)*>(data); };
    switch (type) {
        case VT_BOOL:
            return at(VARIANT_BOOL{}) != VARIANT_FALSE;
        case VT_I1:
            return static_cast<std::int16_t>(at(std::int8_t{}));
        case VT_UI1:
            return static_cast<std::int16_t>(at(std::uint8_t{}));
        case VT_I2:
            return at(std::int16_t{});
        case VT_UI2:
            return from_integer(at(std::uint16_t{}));
        case VT_I4:
        case VT_INT:
            return at(std::int32_t{});
        case VT_UI4:
        case VT_UINT:
            return from_integer(at(std::uint32_t{}));
        case VT_I8:
            return from_integer(at(std::int64_t{}));
        case VT_UI8:
            return from_integer(at(std::uint64_t{}));
        case VT_R4:
            return at(float{});
        case VT_R8:
        case VT_DATE:
            return at(double{});
        case VT_CY:
            return from_currency(at(CY{}));
        case VT_BSTR:
            return from_bstr(at(BSTR{}));
        case VT_DISPATCH:
            return from_dispatch(at(static_cast<IDispatch*>(nullptr)));
        case VT_UNKNOWN:
            return from_unknown(at(static_cast<IUnknown*>(nullptr)));
        case VT_ERROR:
            return from_error(at(SCODE{}));
        default:
            mismatch();
    }
}

Value from_reference(VARTYPE type, void* data) {
    if (data == nullptr) mismatch();
    if (type == VT_VARIANT) {
        const auto& inner = *static_cast<const VARIANT*>(data);
        // One level is all that automation knows; more would let a variant refer to itself.
        if (inner.vt == (VT_BYREF | VT_VARIANT)) mismatch();
        return to_value(inner);
    }
    if (type == VT_DECIMAL) return from_decimal(*static_cast<const DECIMAL*>(data));
    if ((type & VT_ARRAY) != 0)
        return from_array(*static_cast<SAFEARRAY**>(data), static_cast<VARTYPE>(type & ~VT_ARRAY));
    return from_plain(type, data);
}

SAFEARRAY* new_array(const Array& array, VARTYPE type) {
    SAFEARRAY* created =
        SafeArrayCreateVector(type, array.lower_bound, static_cast<ULONG>(array.items.size()));
    if (created == nullptr) throw Error(RuntimeError::out_of_memory);
    return created;
}

struct DestroyArray {
    void operator()(SAFEARRAY* array) const { SafeArrayDestroy(array); }
};

void put_array(const Array& array, VARIANT& target) {
    const bool texts = array.element == Array::Element::text;
    const VARTYPE type = texts ? VT_BSTR : VT_VARIANT;
    std::unique_ptr<SAFEARRAY, DestroyArray> created(new_array(array, type));
    LONG index = array.lower_bound;
    for (const Value& item : array.items) {
        Variant element;
        put_value(item, *element);
        if (texts && element->vt != VT_BSTR) mismatch();
        void* data = texts ? static_cast<void*>(element->bstrVal) : static_cast<void*>(element.get());
        check(SafeArrayPutElement(created.get(), &index, data));
        ++index;
    }
    target.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    target.parray = created.release();
}

void put_object(const ObjectPtr& object, VARIANT& target) {
    IDispatch* dispatch = nullptr;
    if (object != nullptr) {
        const auto outside = std::dynamic_pointer_cast<DispatchObject>(object);
        if (outside == nullptr) mismatch();
        dispatch = ComPointer<IDispatch>::share(outside->dispatch()).release();
    }
    target.vt = VT_DISPATCH;
    target.pdispVal = dispatch;
}

/// Writes each kind of value into a variant.
struct Writer {
    VARIANT& target;

    void operator()(Empty) const { target.vt = VT_EMPTY; }
    void operator()(Null) const { target.vt = VT_NULL; }
    void operator()(Missing) const {
        target.vt = VT_ERROR;
        target.scode = DISP_E_PARAMNOTFOUND;
    }
    void operator()(bool truth) const {
        target.vt = VT_BOOL;
        target.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    }
    void operator()(std::int16_t number) const {
        target.vt = VT_I2;
        target.iVal = number;
    }
    void operator()(std::int32_t number) const {
        target.vt = VT_I4;
        target.lVal = number;
    }
    void operator()(float number) const {
        target.vt = VT_R4;
        target.fltVal = number;
    }
    void operator()(double number) const {
        target.vt = VT_R8;
        target.dblVal = number;
    }
    void operator()(const std::string& text) const {
        target.bstrVal = Bstr(text).release();
        target.vt = VT_BSTR;
    }
    void operator()(const ObjectPtr& object) const { put_object(object, target); }
    void operator()(const ArrayPtr& array) const { put_array(*array, target); }
};

}  // namespace

Bstr::Bstr(std::string_view utf8) {
    const std::wstring wide = to_utf16(utf8);
    text_ = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (text_ == nullptr) throw Error(RuntimeError::out_of_memory);
}

std::string from_bstr(BSTR text) {
    return text == nullptr ? std::string() : to_utf8(std::wstring_view(text, SysStringLen(text)));
}

Value to_value(const VARIANT& variant) {
    const VARTYPE type = variant.vt;
    if (type == VT_EMPTY) return Empty{};
    if (type == VT_NULL) return Null{};
    if (type == VT_DECIMAL) return from_decimal(variant.decVal);
    if ((type & VT_BYREF) != 0) return from_reference(static_cast<VARTYPE>(type & ~VT_BYREF), variant.byref);
    if ((type & VT_ARRAY) != 0) return from_array(variant.parray, static_cast<VARTYPE>(type & ~VT_ARRAY));
    return from_plain(type, &variant.llVal);
}

void put_value(const Value& value, VARIANT& target) {
    VariantInit(&target);
    std::visit(Writer{target}, value.storage());
}

}  // namespace foliant::platform::win32
