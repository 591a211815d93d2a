#include "com/build_pdf_object.h"

#include <algorithm>
#include <cstring>
#include <ole2.h>
#include <olectl.h>

#include "com/guard.h"
#include "com/identifiers.h"
#include "com/parameter_variant.h"
#include "com/slots.h"
#include "core/dispatch.h"
#include "platform/win32/text.h"
#include "platform/win32/variant.h"

namespace foliant::com {

using automation::Access;
using automation::Error;
using automation::RuntimeError;
using automation::Value;
using core::Member;
using platform::win32::ComPointer;
using platform::win32::Variant;

namespace {

Access access_of(WORD flags) {
    if ((flags & DISPATCH_PROPERTYPUTREF) != 0) return Access::set_reference;
    if ((flags & DISPATCH_PROPERTYPUT) != 0) return Access::set;
    if ((flags & DISPATCH_METHOD) != 0) return Access::call;
    if ((flags & DISPATCH_PROPERTYGET) != 0) return Access::get;
    throw Error(RuntimeError::invalid_procedure_call);
}

/// The first row of that DISPID; the accessors of a property have the same parameters but for the new value.
const Member* member_of_any_kind(DISPID id) noexcept {
    const Member* member = core::find_member(id, Access::get);
    return member != nullptr ? member : core::find_member(id, Access::set);
}

/// Bytes of a result's place.
std::size_t size_of_place(VARTYPE type) noexcept {
    switch (type) {
        case VT_BOOL:
        case VT_I2:
            return 2;
        case VT_I4:
        case VT_R4:
            return 4;
        case VT_R8:
            return 8;
        case VT_VARIANT:
            return sizeof(VARIANT);
        default:
            return sizeof(void*);
    }
}

/// Hands a value over to the caller, in a place of its own type.
void hand_over(const Value& value, VARTYPE type, void* place) {
    Variant result;
    platform::win32::put_value(value, *result);
    const void* content = type == VT_VARIANT ? static_cast<const void*>(result.get()) : &result->llVal;
    std::memcpy(place, content, size_of_place(type));
    VariantInit(result.get());
}

/// What an error of a late-bound call is without a place for its description.
HRESULT bare_result(const Error& error) noexcept {
    switch (static_cast<RuntimeError>(error.number())) {
        case RuntimeError::type_mismatch:
            return DISP_E_TYPEMISMATCH;
        case RuntimeError::overflow:
            return DISP_E_OVERFLOW;
        case RuntimeError::wrong_number_of_arguments:
            return DISP_E_BADPARAMCOUNT;
        case RuntimeError::argument_not_optional:
            return DISP_E_PARAMNOTOPTIONAL;
        case RuntimeError::named_argument_not_found:
            return DISP_E_PARAMNOTFOUND;
        default:
            return hresult_of(error);
    }
}

}  // namespace

// The component reads its settings when it is made; clients hear of what fails then as of any other failure.
BuildPdfObject::BuildPdfObject()
    : dual_{dual_functions(), this}, events_(*this), component_(windows_.platform(), events_) {}

HRESULT BuildPdfObject::QueryInterface(REFIID id, void** object) noexcept {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch || id == interface_id) {
        *object = dispatch();
    } else if (id == IID_ISupportErrorInfo) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else if (id == IID_IConnectionPointContainer) {
        *object = static_cast<IConnectionPointContainer*>(this);
    } else if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2) {
        *object = static_cast<IProvideClassInfo2*>(this);
    } else {
        return E_NOINTERFACE;
    }
    add_reference();
    return S_OK;
}

HRESULT BuildPdfObject::get_type_info(UINT index, ITypeInfo** type) noexcept {
    if (type == nullptr) return E_POINTER;
    *type = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return guarded([&] {
        *type = module::type_information(interface_id).release();
        return S_OK;
    });
}

HRESULT BuildPdfObject::get_ids_of_names(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    return guarded([&] {
        std::fill_n(ids, count, DISPID_UNKNOWN);
        const auto id = core::find_dispid(platform::win32::to_utf8(std::wstring_view(names[0])));
        if (!id) return DISP_E_UNKNOWNNAME;
        ids[0] = *id;
        HRESULT outcome = S_OK;
        const Member* member = member_of_any_kind(*id);
        for (UINT i = 1; i < count; ++i) {
            const auto name = platform::win32::to_utf8(std::wstring_view(names[i]));
            const auto parameter = core::find_parameter(*member, name);
            if (parameter) ids[i] = static_cast<DISPID>(*parameter);
            if (!parameter) outcome = DISP_E_UNKNOWNNAME;
        }
        return outcome;
    });
}

HRESULT BuildPdfObject::invoke(DISPID id, WORD flags, const DISPPARAMS* sent, VARIANT* result,
                               EXCEPINFO* failure) noexcept {
    if (result != nullptr) VariantInit(result);
    // A client may let go of the object while one of its members runs, for example in an event.
    const auto alive = ComPointer<IDispatch>::share(dispatch());
    try {
        const Access access = access_of(flags);
        const Member* member = core::find_member(id, access);
        if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
        const Value value = call_member(component_, *member, access,
                                        sort_arguments(*member, sent == nullptr ? DISPPARAMS{} : *sent));
        if (result != nullptr && member->result) platform::win32::put_value(value, *result);
        return S_OK;
    } catch (...) {
        const Error error = automation::current_error();
        if (failure == nullptr) return bare_result(error);
        describe(error, *failure);
        return DISP_E_EXCEPTION;
    }
}

HRESULT BuildPdfObject::call_slot(const Member& member, std::span<VARIANT> arguments, void* result) noexcept {
    const auto alive = ComPointer<IDispatch>::share(dispatch());
    return guarded([&] {
        if (result != nullptr) std::memset(result, 0, size_of_place(variant_type(*member.result)));
        GivenArguments given{};
        for (std::size_t i = 0; i < arguments.size(); ++i)
            given[i] = &arguments[i];
        const Access access = member.kind == core::MemberKind::property_put ? Access::set : Access::call;
        const Value value = call_member(component_, member, access, given);
        if (result != nullptr) hand_over(value, variant_type(*member.result), result);
        return S_OK;
    });
}

HRESULT BuildPdfObject::InterfaceSupportsErrorInfo(REFIID id) noexcept {
    return id == interface_id || id == IID_IDispatch ? S_OK : S_FALSE;
}

HRESULT BuildPdfObject::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
    if (points == nullptr) return E_POINTER;
    *points = nullptr;
    return guarded([&] {
        *points = new_connection_point_list(events_);
        return S_OK;
    });
}

HRESULT BuildPdfObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (id != events_id) return CONNECT_E_NOCONNECTION;
    return events_.QueryInterface(IID_IConnectionPoint, reinterpret_cast<void**>(point));
}

HRESULT BuildPdfObject::GetClassInfo(ITypeInfo** type) noexcept {
    if (type == nullptr) return E_POINTER;
    *type = nullptr;
    return guarded([&] {
        *type = module::type_information(class_id).release();
        return S_OK;
    });
}

HRESULT BuildPdfObject::GetGUID(DWORD kind, GUID* id) noexcept {
    if (id == nullptr) return E_POINTER;
    *id = {};
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = events_id;
    return S_OK;
}

}  // namespace foliant::com
