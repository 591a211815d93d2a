#include "core/members.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "core/dispatch.h"
#include "core/events.h"
#include "core/parameter_help.h"

namespace foliant::core {
namespace {

const char* type_name(ValueType type) {
    switch (type) {
        case ValueType::string:
            return "string";
        case ValueType::boolean:
            return "Boolean";
        case ValueType::integer:
            return "integer";
        case ValueType::long_number:
            return "long";
        case ValueType::single:
            return "single";
        case ValueType::double_number:
            return "double";
        case ValueType::variant:
            return "variant";
        case ValueType::object:
            return "object";
        case ValueType::align_type:
            return "AlignType";
        case ValueType::read_type:
            return "ReadType";
    }
    return "?";
}

const char* kind_name(MemberKind kind) {
    return kind == MemberKind::method         ? "method"
           : kind == MemberKind::property_get ? "property get"
                                              : "property put";
}

std::string default_text(const DefaultValue& value) {
    if (const auto* number = std::get_if<std::int32_t>(&value)) return ", default " + std::to_string(*number);
    if (const auto* text = std::get_if<std::string_view>(&value))
        return ", default \"" + std::string(*text) + "\"";
    return "";
}

std::string interface_text() {
    std::ostringstream text;
    for (const Member& member : members) {
        char dispid[16];
        std::snprintf(dispid, sizeof dispid, "0x%08X", static_cast<unsigned>(member.dispid));
        text << member.slot << ' ' << member.name << ' ' << kind_name(member.kind) << ' ' << dispid << " -> "
             << (member.result ? type_name(*member.result) : "nothing") << '\n';
        for (const Parameter& parameter : member.parameters()) {
            text << "  " << parameter.name << ": " << type_name(parameter.type) << " by "
                 << (parameter.by_reference ? "reference" : "value")
                 << (parameter.optional ? ", optional" : "") << default_text(parameter.default_value) << '\n';
        }
    }
    return text.str();
}

/// Clients hold every slot, number, name, type and default in here: the file never changes, except to grow.
TEST(Members, AreTheFrozenInterface) {
    std::ifstream file(std::string(GOLDEN_FOLDER) + "/interface.golden.txt");
    std::ostringstream golden;
    golden << file.rdbuf();
    EXPECT_EQ(interface_text(), golden.str());
}

TEST(Members, LibraryOrderPutsTheAccessorsBetweenOpenPdfAndPrinterName) {
    std::string text;
    for (std::size_t i = 4; i < 10; ++i)
        text += std::string(members[library_order[i]].name) + " ";
    EXPECT_EQ(text, "PrintPDF OpenPDF TempFilePath TempFilePath PrinterName AcrobatVersion ");
    EXPECT_EQ(members[library_order[6]].kind, MemberKind::property_get);
    EXPECT_EQ(members[library_order[7]].kind, MemberKind::property_put);
    EXPECT_EQ(std::set(library_order.begin(), library_order.end()).size(), members.size());
    EXPECT_EQ(members[library_order.back()].name, "DownloadFile");
}

TEST(Members, EveryOneSaysWhatItIsFor) {
    for (const Member& member : members)
        EXPECT_TRUE(member.help.ends_with('.')) << member.name;
}

TEST(Families, AreListedInTheirOwnOrder) {
    for (std::size_t i = 0; i < families.size(); ++i)
        EXPECT_EQ(static_cast<std::size_t>(families[i].family), i) << families[i].heading;
}

TEST(Families, HoldEveryMember) {
    std::size_t held = 0;
    for (const FamilyHeading& family : families) {
        const auto count = std::count_if(members.begin(), members.end(), [&](const Member& member) {
            return member.family == family.family;
        });
        EXPECT_GT(count, 0) << family.heading;
        held += static_cast<std::size_t>(count);
    }
    EXPECT_EQ(held, members.size());
}

TEST(Events, AreTheFrozenSix) {
    std::string text;
    for (const Event& event : events) {
        text += std::to_string(event.dispid) + " " + std::string(event.name) + "(" +
                type_name(event.parameter_type);
        for (const auto parameter : event.parameters)
            text += parameter.empty() ? "" : " " + std::string(parameter);
        text += ")\n";
    }
    EXPECT_EQ(text,
              "1 JobStart(string strInputPostScript strOutputPDF)\n"
              "2 JobDone(string strInputPostScript strOutputPDF)\n"
              "3 JobFail(string strInputPostScript strOutputPDF)\n"
              "4 LogMessage(string strMessage)\n"
              "5 PercentDone(long nPercentDone)\n"
              "6 PageNumber(long nPageNumber)\n");
}

TEST(Enumerations, HaveTheirFrozenValues) {
    EXPECT_EQ(static_cast<int>(AlignType::qrxAlignLeft), 0);
    EXPECT_EQ(static_cast<int>(AlignType::qrxAlignCenter), 1);
    EXPECT_EQ(static_cast<int>(AlignType::qrxAlignRight), 2);
    EXPECT_EQ(static_cast<int>(ReadType::qrxReadNone), 0);
    EXPECT_EQ(static_cast<int>(ReadType::qrxReadCurrentPage), 1);
    EXPECT_EQ(static_cast<int>(ReadType::qrxReadDocument), 2);
}

}  // namespace
}  // namespace foliant::core
