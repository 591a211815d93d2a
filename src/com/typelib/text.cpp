#include "com/typelib/text.h"

#include <array>
#include <cstdio>

#include "com/identifiers.h"
#include "core/build_pdf.h"
#include "core/parameter_help.h"

namespace foliant::com::typelib {
namespace {

using core::AlignType;
using core::ReadType;

constexpr std::array align_entries{
    EnumerationEntry{"qrxAlignLeft", static_cast<std::int32_t>(AlignType::qrxAlignLeft),
                     "At the left margin."},
    EnumerationEntry{"qrxAlignCenter", static_cast<std::int32_t>(AlignType::qrxAlignCenter),
                     "In the middle between the margins."},
    EnumerationEntry{"qrxAlignRight", static_cast<std::int32_t>(AlignType::qrxAlignRight),
                     "At the right margin."},
};
constexpr std::array read_entries{
    EnumerationEntry{"qrxReadNone", static_cast<std::int32_t>(ReadType::qrxReadNone), "Nothing."},
    EnumerationEntry{"qrxReadCurrentPage", static_cast<std::int32_t>(ReadType::qrxReadCurrentPage),
                     "The page that is shown."},
    EnumerationEntry{"qrxReadDocument", static_cast<std::int32_t>(ReadType::qrxReadDocument),
                     "The whole document."},
};
constexpr std::array all_enumerations{
    Enumeration{"AlignType", align_type_id, "Where a header, footer or page number stands.", align_entries},
    Enumeration{"ReadType", read_type_id, "What OpenPDF reads aloud.", read_entries},
};

}  // namespace

std::string_view type_name(core::ValueType type) noexcept {
    using enum core::ValueType;
    switch (type) {
        case string:
            return "BSTR";
        case boolean:
            return "VARIANT_BOOL";
        case integer:
            return "short";
        case long_number:
            return "long";
        case single:
            return "float";
        case double_number:
            return "double";
        case variant:
            return "VARIANT";
        case object:
            return "IDispatch*";
        case align_type:
            return "AlignType";
        case read_type:
            return "ReadType";
    }
    return "";
}

std::string text_of(const GUID& id) {
    char text[40];
    std::snprintf(text, sizeof text, "%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X",
                  static_cast<unsigned long>(id.Data1), id.Data2, id.Data3, id.Data4[0], id.Data4[1],
                  id.Data4[2], id.Data4[3], id.Data4[4], id.Data4[5], id.Data4[6], id.Data4[7]);
    return text;
}

std::string hexadecimal(std::int32_t number) {
    char text[12];
    std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(number));
    return text;
}

std::string help_text(const core::Member& member) {
    std::string text(member.help);
    for (const core::Parameter& parameter : member.parameters()) {
        text += ' ' + std::string(parameter.name) + ": " +
                std::string(core::parameter_help(member, parameter)) + '.';
    }
    return text;
}

std::span<const Enumeration> enumerations() noexcept {
    return all_enumerations;
}

}  // namespace foliant::com::typelib
