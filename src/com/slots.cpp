#include "com/slots.h"

#include <array>
#include <cstring>
#include <type_traits>
#include <utility>

#include "com/build_pdf_object.h"
#include "com/parameter_variant.h"
#include "core/member_table.h"
#include "core/members.h"

namespace foliant::com {
namespace {

using core::Member;
using core::member_table;
using core::members;
using core::ValueType;

template <ValueType Type>
struct Native {
    using Kind = LONG;  // 32-bit integers and enumerations
};
template <>
struct Native<ValueType::string> {
    using Kind = BSTR;
};
template <>
struct Native<ValueType::boolean> {
    using Kind = VARIANT_BOOL;
};
template <>
struct Native<ValueType::integer> {
    using Kind = SHORT;
};
template <>
struct Native<ValueType::single> {
    using Kind = FLOAT;
};
template <>
struct Native<ValueType::double_number> {
    using Kind = DOUBLE;
};
template <>
struct Native<ValueType::variant> {
    using Kind = VARIANT;
};
template <>
struct Native<ValueType::object> {
    using Kind = IDispatch*;
};

/// The type of a parameter in the slot's function.
template <std::size_t Slot, std::size_t Index>
using Parameter = std::conditional_t<member_table[Slot].parameter_storage[Index].by_reference,
                                     typename Native<member_table[Slot].parameter_storage[Index].type>::Kind*,
                                     typename Native<member_table[Slot].parameter_storage[Index].type>::Kind>;

/// An argument as a late-bound caller would have sent it; it borrows what it holds.
template <std::size_t Slot, std::size_t Index>
VARIANT borrowed(Parameter<Slot, Index> argument) noexcept {
    constexpr const core::Parameter& parameter = member_table[Slot].parameter_storage[Index];
    VARIANT variant{};
    if constexpr (parameter.by_reference) {
        variant.vt = VT_BYREF | variant_type(parameter.type);
        variant.byref = argument;
        if (argument == nullptr) {
            variant.vt = VT_ERROR;
            variant.scode = DISP_E_PARAMNOTFOUND;
        }
    } else {
        static_assert(sizeof argument <= sizeof variant.llVal && parameter.type != ValueType::variant);
        variant.vt = variant_type(parameter.type);
        std::memcpy(&variant.llVal, &argument, sizeof argument);
    }
    return variant;
}

template <std::size_t Slot, class Indices>
struct SlotFunction;

template <std::size_t Slot, std::size_t... Index>
struct SlotFunction<Slot, std::index_sequence<Index...>> {
    static HRESULT call(DualInterface* self, void* result, Parameter<Slot, Index>... arguments) noexcept {
        std::array<VARIANT, sizeof...(Index)> sent{borrowed<Slot, Index>(arguments)...};
        return self->object->call_slot(members[Slot], sent, result);
    }
    static HRESULT STDMETHODCALLTYPE without_result(DualInterface* self,
                                                    Parameter<Slot, Index>... arguments) noexcept {
        return call(self, nullptr, arguments...);
    }
    static HRESULT STDMETHODCALLTYPE with_result(DualInterface* self, Parameter<Slot, Index>... arguments,
                                                 void* result) noexcept {
        return result == nullptr ? E_POINTER : call(self, result, arguments...);
    }
};

template <std::size_t Slot>
const void* slot_function() noexcept {
    using Function = SlotFunction<Slot, std::make_index_sequence<member_table[Slot].parameter_count>>;
    if constexpr (member_table[Slot].result.has_value()) {
        return reinterpret_cast<const void*>(&Function::with_result);
    } else {
        return reinterpret_cast<const void*>(&Function::without_result);
    }
}

HRESULT STDMETHODCALLTYPE query_interface(DualInterface* self, REFIID id, void** object) noexcept {
    return self->object->QueryInterface(id, object);
}
ULONG STDMETHODCALLTYPE add_ref(DualInterface* self) noexcept {
    return self->object->add_reference();
}
ULONG STDMETHODCALLTYPE release(DualInterface* self) noexcept {
    return self->object->release_reference();
}
HRESULT STDMETHODCALLTYPE get_type_info_count(DualInterface*, UINT* count) noexcept {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}
HRESULT STDMETHODCALLTYPE get_type_info(DualInterface* self, UINT index, LCID, ITypeInfo** type) noexcept {
    return self->object->get_type_info(index, type);
}
HRESULT STDMETHODCALLTYPE get_ids_of_names(DualInterface* self, REFIID, LPOLESTR* names, UINT count, LCID,
                                           DISPID* ids) noexcept {
    return self->object->get_ids_of_names(names, count, ids);
}
HRESULT STDMETHODCALLTYPE invoke(DualInterface* self, DISPID id, REFIID reserved, LCID, WORD flags,
                                 DISPPARAMS* sent, VARIANT* result, EXCEPINFO* failure,
                                 UINT* wrong_argument) noexcept {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (wrong_argument != nullptr) *wrong_argument = 0;
    return self->object->invoke(id, flags, sent, result, failure);
}

template <class Function>
const void* address(Function function) noexcept {
    return reinterpret_cast<const void*>(function);
}

template <std::size_t... Slot>
std::array<const void*, 7 + sizeof...(Slot)> all_functions(std::index_sequence<Slot...>) noexcept {
    return {
        address(query_interface), address(add_ref),          address(release), address(get_type_info_count),
        address(get_type_info),   address(get_ids_of_names), address(invoke),  slot_function<Slot>()...};
}

}  // namespace

const void* const* dual_functions() noexcept {
    static const auto functions = all_functions(std::make_index_sequence<members.size()>());
    return functions.data();
}

}  // namespace foliant::com
