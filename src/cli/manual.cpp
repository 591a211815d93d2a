#include "cli/manual.h"

#include "cli/exit_codes.h"
#include "cli/option_names.h"
#include "core/members.h"
#include "core/parameter_help.h"
#include "foliant_version.h"

namespace foliant::cli {

using core::Member;
using core::MemberKind;
using core::Parameter;

namespace {

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '\\' || c == '-') result += '\\';
        result += c;
    }
    return result;
}

/// As section headings of manual pages are written.
std::string in_capitals(std::string_view text) {
    std::string result(text);
    for (char& c : result)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return result;
}

std::string synopsis_of(const Member& member) {
    std::string text = ".B foliant " + std::string(member.name) + "\n";
    for (const Parameter& parameter : member.parameters()) {
        if (parameter.optional || is_made_by_the_command(parameter)) continue;
        if (is_shown_with_option(member, parameter))
            text += ".B " + escaped("--" + option_name(parameter.name)) + "\n";
        const bool list = core::is_list(core::parameter_role(member, parameter));
        text += ".I " + placeholder(parameter.name) + (list ? " ...\n" : "\n");
    }
    return text;
}

std::string parameters_of(const Member& member) {
    std::string text;
    for (const Parameter& parameter : member.parameters()) {
        if (is_made_by_the_command(parameter)) continue;
        const bool flag = parameter.type == core::ValueType::boolean;
        text += ".TP\n.BR " + escaped("--" + option_name(parameter.name)) + " , " +
                escaped("--" + std::string(parameter.name)) +
                (flag ? "" : " \" \\fI" + placeholder(parameter.name) + "\\fR\"") + "\n" +
                escaped(core::parameter_help(member, parameter)) + ".\n";
    }
    return text;
}

std::string member_section(const Member& member) {
    return ".SS " + std::string(member.name) + "\n" + escaped(member.help) + "\n.PP\n" + synopsis_of(member) +
           parameters_of(member);
}

constexpr const char* head =
    ".SH NAME\n"
    "foliant \\- turn documents into PDF, and work on PDFs, with one call each\n"
    ".SH SYNOPSIS\n"
    ".B foliant\n.I MEMBER\n.RI [ arguments ]\n.br\n"
    ".B foliant rehearse\n.I MEMBER\n.RI [ arguments ]\n.br\n"
    ".B foliant hosts\n.br\n"
    ".B foliant help\n.I MEMBER\n.br\n"
    ".B foliant registry\n.BR list | get | set | remove | reset\n.br\n"
    ".B foliant completion\n.BR bash | zsh | fish\n"
    ".SH EXAMPLES\n.nf\n"
    "foliant CreatePDFfromWord letter.pdf letter.docx\n"
    "foliant CreatePDFfromWord letter.pdf letter.docx \\-\\-landscape \\-\\-pages 1\\-3\n"
    "foliant CreatePDFfromMultiPS book.pdf cover.ps text.ps index.ps\n"
    "foliant rehearse CreatePDFfromWord letter.pdf letter.docx\n.fi\n"
    ".SH DESCRIPTION\n"
    "Each member of the class BuildPDF is a sub\\-command. Names may be written in any case.\n"
    "Required parameters stand in order or behind the option of their name; every option also has the\n"
    "parameter's exact name. Results go to standard output, progress and errors to standard error.\n"
    ".PP\n"
    "An output that is also an input, that is of another kind than the member writes, or that is no\n"
    "ordinary file is refused before anything is done. What stood under its name comes back when the call\n"
    "fails or is interrupted.\n"
    ".SH OPTIONS\n"
    ".TP\n.B \\-\\-json\nPrint the outcome as one JSON object, a failure too.\n"
    ".TP\n.BR \\-q , \\-\\-quiet\nNo progress and no closing line.\n"
    ".TP\n.BR \\-v , \\-\\-verbose\nShow every call on a program or a file as it is made; alone, the "
    "version.\n"
    ".TP\n.BI \\-\\-log \" FILE\"\nAppend that to a file, with what engines have to say.\n"
    ".TP\n.B \\-\\-no\\-clobber\nReplace no file that exists.\n"
    ".TP\n.BI \\-\\-timeout \" TIME\"\nEnd the call after that time, such as 30, 2.5s, 5m or 1h.\n"
    ".TP\n.BI \\-\\-memory \" SIZE\"\n"
    "End the call when its processes together need more, such as 512M or 2G. Usually half of the\n"
    "machine's memory, at most 2G; none is no limit.\n"
    ".TP\n.BI \\-\\-temp\\-path \" FOLDER\"\n"
    "Folder for temporary files; otherwise a private one that is removed.\n"
    ".TP\n.BI \\-\\-NAME\\-file \" FILE\"\nRead the password NAME from the first line of FILE, \\- for "
    "standard input.\n"
    ".TP\n.B \\-\\-NAME\\-ask\nAsk for the password NAME on the terminal.\n";

}  // namespace

std::string manual_page() {
    std::string page = ".TH FOLIANT 1 \"\" \"foliant " FOLIANT_VERSION "\"\n";
    page += head;
    page += ".SH EXIT STATUS\n";
    for (const auto& row : exit_code_table) {
        page += ".TP\n.B " + std::to_string(row.code) + "\n" + escaped(row.meaning) + "\n";
    }
    for (const core::FamilyHeading& family : core::families) {
        page += ".SH " + in_capitals(family.heading) + "\n";
        for (const Member& member : core::members) {
            const bool shown = member.family == family.family && member.kind != MemberKind::property_put;
            if (shown) page += member_section(member);
        }
    }
    return page;
}

}  // namespace foliant::cli
