#include "windows/com/library_text.h"

#include <array>
#include <cstdio>
#include <oleauto.h>

#include "platform/win32/com_pointer.h"
#include "platform/win32/text.h"
#include "platform/win32/variant.h"

namespace foliant::com {
namespace {

using platform::win32::ComPointer;
using platform::win32::from_bstr;
using platform::win32::to_utf8;
using platform::win32::Variant;

constexpr unsigned slots_before_the_members = 7;

std::string hexadecimal(unsigned long number) {
    char text[12];
    std::snprintf(text, sizeof text, "0x%lX", number);
    return text;
}

std::string text_of(const GUID& id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return to_utf8(std::wstring_view(text));
}

std::string taken(BSTR text) {
    std::string result = from_bstr(text);
    SysFreeString(text);
    return result;
}

struct Names {
    std::string name;
    std::string help;
};

Names names_of(ITypeInfo& type, MEMBERID member) {
    BSTR name = nullptr;
    BSTR help = nullptr;
    type.GetDocumentation(member, &name, &help, nullptr, nullptr);
    return {taken(name), taken(help)};
}

std::string type_text(ITypeInfo& type, const TYPEDESC& description) {
    switch (description.vt) {
        case VT_PTR:
            return type_text(type, *description.lptdesc) + "*";
        case VT_USERDEFINED: {
            ComPointer<ITypeInfo> other;
            type.GetRefTypeInfo(description.hreftype, other.put());
            return other ? names_of(*other.get(), MEMBERID_NIL).name : "?";
        }
        case VT_BSTR:
            return "BSTR";
        case VT_BOOL:
            return "VARIANT_BOOL";
        case VT_I2:
            return "short";
        case VT_I4:
            return "long";
        case VT_R4:
            return "float";
        case VT_R8:
            return "double";
        case VT_VARIANT:
            return "VARIANT";
        case VT_DISPATCH:
            return "IDispatch*";
        case VT_HRESULT:
            return "HRESULT";
        case VT_VOID:
            return "void";
        default:
            return "VT_" + std::to_string(description.vt);
    }
}

std::string default_text(const PARAMDESC& parameter) {
    if ((parameter.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) return "";
    VARIANT& value = parameter.pparamdescex->varDefaultValue;
    if (value.vt == VT_BSTR) return " = \"" + from_bstr(value.bstrVal) + "\"";
    Variant number;
    VariantChangeType(number.get(), &value, 0, VT_I4);
    return " = " + std::to_string(number->lVal) + " (VT_" + std::to_string(value.vt) + ")";
}

std::string flags_text(WORD flags) {
    std::string text;
    if ((flags & PARAMFLAG_FIN) != 0) text += "in ";
    if ((flags & PARAMFLAG_FOUT) != 0) text += "out ";
    if ((flags & PARAMFLAG_FRETVAL) != 0) text += "retval ";
    if ((flags & PARAMFLAG_FOPT) != 0) text += "optional ";
    return text;
}

/// Functions that the interface itself adds; those of IDispatch, which some systems list too, are left out.
std::string function_text(ITypeInfo& type, UINT index) {
    FUNCDESC* function = nullptr;
    if (FAILED(type.GetFuncDesc(index, &function))) return "?\n";
    std::array<BSTR, 32> names{};
    UINT count = 0;
    type.GetNames(function->memid, names.data(), static_cast<UINT>(names.size()), &count);
    const auto slot = static_cast<std::size_t>(function->oVft) / sizeof(void*);
    std::string text;
    if (function->funckind != FUNC_DISPATCH || slot >= slots_before_the_members || function->oVft == 0) {
        text = "  [" + std::to_string(static_cast<long>(slot) - static_cast<long>(slots_before_the_members)) +
               "] " + hexadecimal(static_cast<unsigned long>(function->memid)) + " kind " +
               std::to_string(function->invkind) + " " + type_text(type, function->elemdescFunc.tdesc) + " " +
               from_bstr(names[0]) + " \"" + names_of(type, function->memid).help + "\"\n";
        for (SHORT i = 0; i < function->cParams; ++i) {
            const ELEMDESC& parameter = function->lprgelemdescParam[i];
            const auto name = static_cast<std::size_t>(i) + 1;
            text += "      " + flags_text(parameter.paramdesc.wParamFlags) +
                    type_text(type, parameter.tdesc) + " " + (name < count ? from_bstr(names[name]) : "") +
                    default_text(parameter.paramdesc) + "\n";
        }
    }
    for (BSTR name : names)
        SysFreeString(name);
    type.ReleaseFuncDesc(function);
    return text;
}

std::string constant_text(ITypeInfo& type, UINT index) {
    VARDESC* constant = nullptr;
    if (FAILED(type.GetVarDesc(index, &constant))) return "?\n";
    const Names names = names_of(type, constant->memid);
    const std::string text =
        "  " + names.name + " = " + std::to_string(constant->lpvarValue->lVal) + " \"" + names.help + "\"\n";
    type.ReleaseVarDesc(constant);
    return text;
}

std::string implemented_text(ITypeInfo& type, UINT index) {
    HREFTYPE reference = 0;
    INT flags = 0;
    ComPointer<ITypeInfo> other;
    type.GetRefTypeOfImplType(index, &reference);
    type.GetImplTypeFlags(index, &flags);
    type.GetRefTypeInfo(reference, other.put());
    return "  implements " + (other ? names_of(*other.get(), MEMBERID_NIL).name : "?") + " flags " +
           hexadecimal(static_cast<unsigned long>(flags)) + "\n";
}

std::string type_text(ITypeInfo& type) {
    TYPEATTR* attributes = nullptr;
    if (FAILED(type.GetTypeAttr(&attributes))) return "?\n";
    const Names names = names_of(type, MEMBERID_NIL);
    std::string text = names.name + " kind " + std::to_string(attributes->typekind) + " " +
                       text_of(attributes->guid) + " flags " + hexadecimal(attributes->wTypeFlags) + " \"" +
                       names.help + "\"\n";
    for (UINT i = 0; i < attributes->cImplTypes; ++i)
        text += implemented_text(type, i);
    for (UINT i = 0; i < attributes->cVars; ++i)
        text += constant_text(type, i);
    for (UINT i = 0; i < attributes->cFuncs; ++i)
        text += function_text(type, i);
    type.ReleaseTypeAttr(attributes);
    return text;
}

}  // namespace

std::string library_text(ITypeLib& library) {
    TLIBATTR* attributes = nullptr;
    if (FAILED(library.GetLibAttr(&attributes))) return "?";
    BSTR name = nullptr;
    BSTR help = nullptr;
    library.GetDocumentation(-1, &name, &help, nullptr, nullptr);
    std::string text = "library " + taken(name) + " " + text_of(attributes->guid) + " version " +
                       std::to_string(attributes->wMajorVerNum) + "." +
                       std::to_string(attributes->wMinorVerNum) + " locale " +
                       std::to_string(attributes->lcid) + " \"" + taken(help) + "\"\n";
    library.ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        ComPointer<ITypeInfo> type;
        library.GetTypeInfo(i, type.put());
        // A dual interface has two faces; the one with the slots is behind the other.
        HREFTYPE reference = 0;
        if (SUCCEEDED(type->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference))) {
            ComPointer<ITypeInfo> with_slots;
            if (SUCCEEDED(type->GetRefTypeInfo(reference, with_slots.put())))
                text += type_text(*with_slots.get());
        } else {
            text += type_text(*type.get());
        }
    }
    return text;
}

}  // namespace foliant::com
