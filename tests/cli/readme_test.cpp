#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <sstream>
#include <string>

#include "cli/exit_codes.h"
#include "core/members.h"

namespace foliant::cli {
namespace {

using core::Member;
using core::MemberKind;

/// The members by family.
std::string members_text() {
    std::ostringstream text;
    text << "| | member | what it does |\n|---|---|---|\n";
    for (const core::FamilyHeading& family : core::families) {
        std::string_view heading = family.heading;
        for (const Member& member : core::members) {
            if (member.family != family.family) continue;
            if (member.kind == MemberKind::property_put) continue;
            text << "| " << heading << (heading.empty() ? "" : " ") << "| `" << member.name << "` | "
                 << member.help << " |\n";
            heading = "";
        }
    }
    return text.str();
}

/// Options stand between backquotes.
std::string exit_codes_text() {
    std::ostringstream text;
    text << "| exit code | meaning |\n|---|---|\n";
    for (const ExitCodeHelp& row : exit_code_table) {
        text << "| " << row.code << " | " << std::regex_replace(row.meaning, std::regex("--[a-z-]+"), "`$&`")
             << " |\n";
    }
    return text.str();
}

/// A piece of README between its two marks, which are comments that no reader sees.
class Piece {
  public:
    explicit Piece(const std::string& name) {
        std::ostringstream content;
        content << std::ifstream(README_FILE).rdbuf();
        whole_ = content.str();
        const std::string opening = "<!-- " + name + ": made by scripts/renew-readme -->\n";
        const std::size_t mark = whole_.find(opening);
        if (mark == std::string::npos) throw std::runtime_error("README.md has no mark " + opening);
        begin_ = mark + opening.size();
        length_ = whole_.find("<!-- end -->", begin_) - begin_;
    }

    std::string text() const { return whole_.substr(begin_, length_); }

    void replace(const std::string& text) const {
        std::ofstream(README_FILE) << std::string(whole_).replace(begin_, length_, text);
    }

  private:
    std::string whole_;
    std::size_t begin_ = 0;
    std::size_t length_ = 0;
};

void expect_or_renew(const std::string& name, const std::string& text) {
    if (std::getenv("FOLIANT_RENEW_README") != nullptr) Piece(name).replace(text);
    EXPECT_EQ(Piece(name).text(), text) << "To mend: scripts/renew-readme";
}

TEST(Readme, ListsTheMembersThatAreThereAsHelpDescribesThem) {
    expect_or_renew("members", members_text());
}

TEST(Readme, HasTheExitCodesOfHelp) {
    expect_or_renew("exit codes", exit_codes_text());
}

}  // namespace
}  // namespace foliant::cli
