#include <gtest/gtest.h>

#include "cli/completion.h"
#include "cli/manual.h"
#include "cli/option_names.h"
#include "core/members.h"

namespace foliant::cli {
namespace {

/// The faces of the table: whatever a member gains there shows in each of them.
TEST(Faces, EveryMemberAndOptionIsInTheManualAndInEveryCompletion) {
    const std::string manual = manual_page();
    for (const std::string& text :
         {completion_script("bash"), completion_script("zsh"), completion_script("fish"), manual}) {
        for (const core::Member& member : core::members) {
            EXPECT_NE(text.find(member.name), std::string::npos) << member.name;
            for (const core::Parameter& parameter : member.parameters()) {
                if (parameter.type == core::ValueType::object || member.kind != core::MemberKind::method)
                    continue;
                std::string name = option_name(parameter.name);
                const bool found = text.find(name) != std::string::npos;
                for (std::size_t at = 0; (at = name.find('-', at)) != std::string::npos; at += 2) {
                    name.insert(at, 1, '\\');
                }
                EXPECT_TRUE(found || text.find(name) != std::string::npos)
                    << member.name << " " << parameter.name;
            }
        }
    }
}

TEST(Faces, TheManualIsTroff) {
    EXPECT_TRUE(manual_page().starts_with(".TH FOLIANT 1"));
    EXPECT_NE(manual_page().find(".SH EXIT STATUS"), std::string::npos);
}

TEST(Faces, TheManualHasASectionForEachFamily) {
    const std::string page = manual_page();
    const std::size_t begin = page.find("\n.SH POSTSCRIPT FILES\n");
    ASSERT_NE(begin, std::string::npos);
    const std::string section = page.substr(begin, page.find("\n.SH ", begin + 1) - begin);
    EXPECT_NE(section.find("\n.SS CreatePDFfromPS\n"), std::string::npos) << section;
    EXPECT_NE(section.find("\n.SS CreatePDFfromMultiPS\n"), std::string::npos) << section;
    EXPECT_EQ(section.find("\n.SS CreatePDFfromWord\n"), std::string::npos) << section;
}

}  // namespace
}  // namespace foliant::cli
