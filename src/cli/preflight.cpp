#include "cli/preflight.h"

#include "automation/coerce.h"
#include "automation/error.h"
#include "automation/object.h"
#include "automation/text.h"
#include "cli/call.h"
#include "cli/named_files.h"
#include "core/parameter_help.h"
#include "session/acrobat_versions.h"
#include "session/errors.h"

namespace foliant::cli {
namespace {

void require_protection(const platform::Platform& here) {
    automation::Silence silence;
    const session::Session session(here, silence);
    if (session::acrobat_is_newer_than_5(session)) return;
    const std::string& version = session.AcrobatVersion();
    throw host_error(
        "The PDF would not be protected: that takes an Acrobat above 5.0, and the settings name " +
        (version.empty() ? "none" : version) +
        ". Nothing was done. Leave out --apply-security, or name a newer one:\n"
        "  foliant registry set 'HKLM\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion' '' 6.0");
}

bool is_there(const platform::Platform& here, const std::string& path) {
    try {
        here.files.length(path);
        return true;
    } catch (const automation::Error&) {
        return false;
    }
}

/// The members that transfer files look for none: a server would be asked first.
void require_file_to_send(const Request& request, const platform::Platform& here) {
    if (request.member->family != core::Family::transfer) return;
    for (const NamedFile& input : inputs_of(*request.member, request.arguments)) {
        if (!is_there(here, input.path)) throw session::missing_file_error(input.path);
    }
}

std::string text_of(const Request& request, std::string_view parameter) {
    for (const automation::Argument& argument : request.arguments) {
        if (automation::equal_ignoring_case(argument.name, parameter))
            return automation::to_text(argument.value);
    }
    return {};
}

/// The members that take a folder do nothing without a word when no file in it matches.
void require_match_in_folder(const Request& request, const platform::Platform& here) {
    const std::string folder = text_of(request, "strDirectory");
    if (folder.empty()) return;
    const std::string named = text_of(request, "strFiles");
    const std::string pattern = named.empty() ? "*.pdf" : named;
    if (here.files.list(automation::with_separator(folder, here.files.separator()) + pattern)->next()) return;
    throw session::component_error("Nothing was done: in " + folder + ", a file that matches " + pattern +
                                   " does not exist.");
}

}  // namespace

std::vector<std::string> preflight(const Request& request, const platform::Platform& here) {
    if (wants_protection(request)) require_protection(here);
    require_file_to_send(request, here);
    require_match_in_folder(request, here);
    std::vector<std::string> missing;
    std::size_t in_lists = 0;
    for (const NamedFile& input : inputs_of(*request.member, request.arguments)) {
        if (!core::is_list(core::parameter_role(*request.member, *input.parameter))) continue;
        ++in_lists;
        if (!is_there(here, input.path)) missing.push_back(input.path + " does not exist");
    }
    if (in_lists > 0 && missing.size() == in_lists) {
        throw session::component_error("Nothing is there to convert: " + missing.front() + ".");
    }
    for (std::string& sentence : missing)
        sentence += ", and was left out.";
    return missing;
}

}  // namespace foliant::cli
