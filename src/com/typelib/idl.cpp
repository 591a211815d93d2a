#include <sstream>

#include "com/identifiers.h"
#include "com/typelib/text.h"
#include "core/events.h"
#include "core/members.h"

namespace foliant::com::typelib {
namespace {

// What every interface stands on. Only the number of slots matters: the real ones come from the system's own
// type library.
constexpr std::string_view foundation = R"(typedef long HRESULT;
typedef wchar_t* BSTR;
typedef short VARIANT_BOOL;
typedef struct tagVARIANT { long content; } VARIANT;
[object, uuid(00000000-0000-0000-C000-000000000046)]
interface IUnknown { HRESULT slot0(); HRESULT slot1(); HRESULT slot2(); }
[object, uuid(00020400-0000-0000-C000-000000000046)]
interface IDispatch : IUnknown { HRESULT slot3(); HRESULT slot4(); HRESULT slot5(); HRESULT slot6(); }
)";

std::string default_text(const core::DefaultValue& value) {
    if (const auto* number = std::get_if<std::int32_t>(&value)) {
        return ", defaultvalue(" + std::to_string(*number) + ")";
    }
    if (const auto* text = std::get_if<std::string_view>(&value)) {
        return ", defaultvalue(\"" + std::string(*text) + "\")";
    }
    return "";
}

void write_parameter(std::ostream& out, const core::Parameter& parameter) {
    // widl takes no default for a text by reference; `arrange` makes it one.
    const bool pointer =
        parameter.by_reference && !std::holds_alternative<std::string_view>(parameter.default_value);
    out << '[' << (parameter.by_reference ? "in, out" : "in") << (parameter.optional ? ", optional" : "")
        << default_text(parameter.default_value) << "] " << type_name(parameter.type)
        << (pointer ? "* " : " ") << parameter.name;
}

std::string_view kind_attribute(core::MemberKind kind) {
    switch (kind) {
        case core::MemberKind::property_get:
            return ", propget";
        case core::MemberKind::property_put:
            return ", propput";
        case core::MemberKind::method:
            break;
    }
    return "";
}

void write_member(std::ostream& out, const core::Member& member) {
    out << "        [id(" << hexadecimal(member.dispid) << ")" << kind_attribute(member.kind)
        << ", helpstring(\"" << help_text(member) << "\")]\n        HRESULT " << member.name << "(";
    const char* separator = "";
    for (const core::Parameter& parameter : member.parameters()) {
        out << separator << "\n            ";
        write_parameter(out, parameter);
        separator = ",";
    }
    if (member.result)
        out << separator << "\n            [out, retval] " << type_name(*member.result) << "* result";
    out << ");\n";
}

void write_event(std::ostream& out, const core::Event& event) {
    out << "        [id(" << event.dispid << "), helpstring(\"" << event.help << "\")] void " << event.name
        << "(";
    const char* separator = "";
    for (const std::string_view parameter : event.parameters) {
        if (parameter.empty()) continue;
        out << separator << "[in, out] " << type_name(event.parameter_type) << "* " << parameter;
        separator = ", ";
    }
    out << ");\n";
}

void write_enumeration(std::ostream& out, const Enumeration& enumeration) {
    out << "    typedef [uuid(" << text_of(enumeration.id) << "), helpstring(\"" << enumeration.help
        << "\")]\n"
        << "    enum " << enumeration.name << " {";
    const char* separator = "";
    for (const EnumerationEntry& entry : enumeration.entries) {
        out << separator << ' ' << entry.name << " = " << entry.value;
        separator = ",";
    }
    out << " } " << enumeration.name << ";\n";
}

}  // namespace

std::string idl() {
    std::ostringstream out;
    out << foundation << "[uuid(" << text_of(library_id) << "), version(" << library_major_version << '.'
        << library_minor_version << "), lcid(" << library_locale
        << "), helpstring(\"Foliant: one-call PDF automation\")]\n"
        << "library Foliant {\n    importlib(\"stdole2.tlb\");\n";
    for (const Enumeration& enumeration : enumerations())
        write_enumeration(out, enumeration);
    out << "    [object, uuid(" << text_of(interface_id)
        << "), dual, hidden, nonextensible, oleautomation, helpstring(\"The members of BuildPDF.\")]\n"
        << "    interface _BuildPDF : IDispatch {\n";
    for (const std::size_t slot : core::library_order)
        write_member(out, core::members[slot]);
    out << "    };\n    [uuid(" << text_of(events_id)
        << "), hidden, helpstring(\"What happens during a Distiller job.\")]\n"
        << "    dispinterface __BuildPDF {\n        properties:\n        methods:\n";
    for (const core::Event& event : core::events)
        write_event(out, event);
    out << "    };\n    [uuid(" << text_of(class_id)
        << "), helpstring(\"Makes, changes and prints PDFs with the programs on this machine.\")]\n"
        << "    coclass BuildPDF {\n        [default] interface _BuildPDF;\n"
        << "        [default, source] dispinterface __BuildPDF;\n    };\n};\n";
    return out.str();
}

}  // namespace foliant::com::typelib
