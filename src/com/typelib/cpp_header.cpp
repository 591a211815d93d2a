#include <sstream>

#include "com/identifiers.h"
#include "com/typelib/text.h"
#include "core/events.h"
#include "core/members.h"

namespace foliant::com::typelib {
namespace {

std::string initializer(const GUID& id) {
    char text[100];
    std::snprintf(
        text, sizeof text,
        "{0x%08lX, 0x%04X, 0x%04X, {0x%02X, 0x%02X, 0x%02X, 0x%02X, 0x%02X, 0x%02X, 0x%02X, 0x%02X}}",
        static_cast<unsigned long>(id.Data1), id.Data2, id.Data3, id.Data4[0], id.Data4[1], id.Data4[2],
        id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6], id.Data4[7]);
    return text;
}

void write_enumeration(std::ostream& out, const Enumeration& enumeration) {
    out << "/* " << enumeration.help << " */\ntypedef enum " << enumeration.name << " {\n";
    for (const EnumerationEntry& entry : enumeration.entries)
        out << "    " << entry.name << " = " << entry.value << ", /* " << entry.help << " */\n";
    out << "} " << enumeration.name << ";\n\n";
}

std::string function_name(const core::Member& member) {
    switch (member.kind) {
        case core::MemberKind::property_get:
            return "get_" + std::string(member.name);
        case core::MemberKind::property_put:
            return "put_" + std::string(member.name);
        case core::MemberKind::method:
            break;
    }
    return std::string(member.name);
}

void write_member(std::ostream& out, const core::Member& member) {
    out << "    /* " << help_text(member) << " */\n    virtual HRESULT STDMETHODCALLTYPE "
        << function_name(member) << "(";
    const char* separator = "";
    for (const core::Parameter& parameter : member.parameters()) {
        out << separator << type_name(parameter.type) << (parameter.by_reference ? "* " : " ")
            << parameter.name;
        separator = ", ";
    }
    if (member.result) out << separator << type_name(*member.result) << "* result";
    out << ") = 0;\n";
}

}  // namespace

std::string cpp_header() {
    std::ostringstream out;
    out << "/* Foliant.BuildPDF for C++ clients that call by slot. Made from the member table. */\n"
        << "#pragma once\n\n#include <oaidl.h>\n\nnamespace Foliant {\n\n"
        << "inline constexpr GUID CLSID_BuildPDF = " << initializer(class_id) << ";\n"
        << "inline constexpr GUID IID__BuildPDF = " << initializer(interface_id) << ";\n"
        << "inline constexpr GUID DIID___BuildPDF = " << initializer(events_id) << ";\n"
        << "inline constexpr GUID LIBID_Foliant = " << initializer(library_id) << ";\n\n";
    for (const Enumeration& enumeration : enumerations())
        write_enumeration(out, enumeration);
    out << "/* DISPIDs of the events, which arrive at the sink's IDispatch::Invoke. */\nenum {\n";
    for (const core::Event& event : core::events)
        out << "    DISPID_" << event.name << " = " << event.dispid << ", /* " << event.help << " */\n";
    out << "};\n\nstruct _BuildPDF : public IDispatch {\n";
    for (const core::Member& member : core::members)
        write_member(out, member);
    out << "};\n\n}  /* namespace Foliant */\n";
    return out.str();
}

}  // namespace foliant::com::typelib
