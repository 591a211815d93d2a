#include "cli/preflight.h"

#include <algorithm>
#include <cerrno>
#include <sys/stat.h>
#include <system_error>

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

using automation::Error;

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

bool is_in_list(const Request& request, const NamedFile& input) {
    return core::is_list(core::parameter_role(*request.member, *input.parameter));
}

bool is_there(const platform::Platform& here, const std::string& path) {
    try {
        here.files.length(path);
        return true;
    } catch (const Error&) {
        return false;
    }
}

/// What stands in the way of reading a file, as a sentence without its end.
struct Fault {
    std::string sentence;
    bool is_missing = true;  ///< rather than something else than a file, or out of reach
};

std::string kind_of(const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return "a folder";
    if (S_ISFIFO(status.st_mode)) return "a pipe";
    return S_ISSOCK(status.st_mode) ? "a socket" : "a device";
}

/// Why there is no file of that name to the members, to whom it is all the same.
Fault fault_of(const std::string& path) {
    if (path.empty()) return {"A file with an empty name does not exist"};
    struct stat status {};
    const int code = ::stat(path.c_str(), &status) == 0 ? 0 : errno;
    if (code == ENOENT || code == ENOTDIR) return {path + " does not exist"};
    if (code != 0) return {path + " cannot be looked at: " + std::generic_category().message(code), false};
    if (S_ISREG(status.st_mode)) return {path + " does not exist"};  // any more
    return {path + " is " + kind_of(status), false};
}

/// What a call is not made for, its exit code told by the error.
Error error_of(const std::string& beginning, const Fault& fault) {
    if (fault.is_missing) return session::component_error(beginning + fault.sentence + ".");
    return {automation::RuntimeError::path_file_access, beginning + fault.sentence + "."};
}

/// Some members look for none: an engine or a server would be asked first.
void require_files(const Request& request, const platform::Platform& here) {
    for (const NamedFile& input : inputs_of(*request.member, request.arguments)) {
        if (is_in_list(request, input) || is_there(here, input.path)) continue;
        const Fault fault = fault_of(input.path);
        if (fault.is_missing && !input.path.empty()) throw session::missing_file_error(input.path);
        throw error_of("", fault);
    }
}

/// The members wait as many milliseconds as an Integer holds, and find out when all else is done.
void require_seconds(const Request& request) {
    constexpr std::int32_t most = 32;
    const std::string seconds = text_of(request.arguments, "intSecsToWaitForPDF");
    if (seconds.empty() || automation::to_int32(seconds) <= most) return;
    throw Error(automation::RuntimeError::overflow,
                "Overflow: " + seconds + " seconds are more than --secs-to-wait-for-pdf takes, " +
                    std::to_string(most) + ". Nothing was done.");
}

/// The members that take a folder do nothing without a word when no file in it matches.
void require_match_in_folder(const Request& request, const platform::Platform& here) {
    const auto folder = folder_of_inputs(request.arguments);
    if (!folder) return;
    const auto& [path, pattern] = *folder;
    if (here.files.list(automation::with_separator(path, here.files.separator()) + pattern)->next()) return;
    throw session::component_error("Nothing was done: in " + path + ", a file that matches " + pattern +
                                   " does not exist.");
}

/// Members pass over what is no file in a list.
std::vector<std::string> left_out_of_lists(const Request& request, const platform::Platform& here) {
    std::vector<Fault> faults;
    std::size_t in_lists = 0;
    for (const NamedFile& input : inputs_of(*request.member, request.arguments)) {
        if (!is_in_list(request, input)) continue;
        ++in_lists;
        if (!is_there(here, input.path)) faults.push_back(fault_of(input.path));
    }
    if (in_lists > 0 && faults.size() == in_lists) {
        const auto missing = std::ranges::find(faults, true, &Fault::is_missing);
        throw error_of("Nothing is there to convert: ", missing == faults.end() ? faults.front() : *missing);
    }
    std::vector<std::string> sentences;
    sentences.reserve(faults.size());
    for (const Fault& fault : faults)
        sentences.push_back(fault.sentence + ", and was left out.");
    return sentences;
}

}  // namespace

std::vector<std::string> preflight(const Request& request, const platform::Platform& here) {
    if (wants_protection(request)) require_protection(here);
    require_seconds(request);
    require_files(request, here);
    require_match_in_folder(request, here);
    return left_out_of_lists(request, here);
}

}  // namespace foliant::cli
