#include "cli/output_guard.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "cli/file_kind.h"
#include "cli/named_files.h"
#include "cli/option_names.h"
#include "core/parameter_help.h"
#include "platform/name_pattern.h"
#include "posix/same_file.h"

namespace foliant::cli {

namespace fs = std::filesystem;

namespace {

std::string reason(int code) {
    return std::generic_category().message(code);
}

/// "The order is: foliant CreatePDFfromWord PDF_FILE WORD_DOCUMENT".
std::string order_of(const core::Member& member) {
    return "\nThe order is: " + usage_line(member);
}

/// A shell that is given a pattern in place of the output and the inputs makes the first file the output.
std::string pattern_advice(const std::string& output, const std::vector<NamedFile>& inputs) {
    const std::string extension = fs::path(output).extension().string();
    if (extension.empty() || inputs.empty() || fs::path(inputs.front().path).extension() != extension) {
        return {};
    }
    return "\nWith a pattern such as *" + extension +
           ", the first file that it matches is taken for the "
           "output: write the output in front of it.";
}

std::optional<std::string> input_refusal(const core::Member& member, const std::string& output,
                                         const struct stat& standing, const std::vector<NamedFile>& inputs) {
    for (const NamedFile& input : inputs) {
        struct stat status {};
        if (::stat(input.path.c_str(), &status) != 0 || !posix::is_same_file(status, standing)) continue;
        const std::string both = input.path == output ? output + " is both output and input"
                                                      : output + " and " + input.path + " are the same file";
        return both + "; the call would destroy it." + order_of(member) + pattern_advice(output, inputs);
    }
    return std::nullopt;
}

std::optional<std::string> kind_refusal(const core::Member& member, const NamedFile& output,
                                        const std::vector<NamedFile>& inputs) {
    const FileKind wanted = kind_written(*output.parameter);
    const FileKind present = file_kind(output.path);
    if (wanted == FileKind::none || present == FileKind::none || present == wanted) return std::nullopt;
    return output.path + " exists and is not " + std::string(kind_name(wanted)) + ", so that " +
           std::string(member.name) +
           " does not replace it. Give the output another name, or remove that file first." +
           order_of(member) + pattern_advice(output.path, inputs);
}

/// Devices and what the system shows of processes are made of entries that a new file would push away.
bool is_of_the_system(const fs::path& folder) {
    std::error_code unknown;
    const fs::path real = fs::canonical(folder, unknown);
    const auto first = std::next(real.begin(), real.empty() ? 0 : 1);
    if (first == real.end()) return false;
    const bool shared_memory = std::next(first) != real.end() && *std::next(first) == "shm";
    return *first == "proc" || *first == "sys" || (*first == "dev" && !shared_memory);
}

std::optional<std::string> folder_refusal(const std::string& output) {
    const fs::path named = fs::path(output).parent_path();
    const fs::path folder = named.empty() ? fs::path(".") : named;
    const std::string shown = named.empty() ? "the current folder" : folder.string();
    struct stat status {};
    if (::stat(folder.c_str(), &status) != 0) {
        return output + " cannot be written: there is no folder " + shown + " (" + reason(errno) + ").";
    }
    if (!S_ISDIR(status.st_mode)) return output + " cannot be written: " + shown + " is no folder.";
    if (is_of_the_system(folder)) {
        return output + " cannot be the output: a member makes a file of its own, and " + shown +
               " is no place for files. Write to a file, and pass that on.";
    }
    if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
        return output + " cannot be written: " + shown + " may not be written to (" + reason(errno) + ").";
    }
    return std::nullopt;
}

/// Why a file that is there may not be written to, in brackets, "" when it may. Nothing but this keeps a
/// member from replacing it: to do that, rights in its folder are enough.
std::string write_protection(const std::string& path) {
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0) return {};
    return " (" + reason(errno) + ")";
}

/// A folder is merged into a file outside of it, or one that its pattern passes over: an older result would be merged into
/// the new one, or the file that happens to come first be lost.
std::optional<std::string> folder_of_inputs_refusal(const Request& request, const std::string& output) {
    const auto folder = folder_of_inputs(request.arguments);
    if (!folder) return std::nullopt;
    const fs::path whole(output);
    const std::string name = whole.filename().string();
    std::error_code unknown;
    if (name.starts_with('.') || !platform::NamePattern(folder->pattern).matches(name) ||
        !fs::equivalent(whole.has_parent_path() ? whole.parent_path() : ".", folder->path, unknown))
        return std::nullopt;
    return output + " is one of the files of " + folder->path + " that are to be merged (" + folder->pattern +
           "). Write the output to another folder, or remove that file first." + order_of(*request.member);
}

std::optional<std::string> standing_refusal(const Request& request, const NamedFile& output,
                                            const struct stat& standing) {
    const core::Member& member = *request.member;
    if (S_ISDIR(standing.st_mode)) {
        return output.path + " is a folder. Name the file to make in it, such as " +
               (fs::path(output.path) / "new.pdf").string() + "." + order_of(member);
    }
    if (!S_ISREG(standing.st_mode)) {
        return output.path + " is a device or a pipe; the output has to be an ordinary file." +
               order_of(member);
    }
    const auto inputs = inputs_of(member, request.arguments);
    if (auto refused = input_refusal(member, output.path, standing, inputs)) return refused;
    if (auto refused = folder_of_inputs_refusal(request, output.path)) return refused;
    if (auto refused = kind_refusal(member, output, inputs)) return refused;
    const std::string protection = write_protection(output.path);
    if (protection.empty()) return std::nullopt;
    return output.path + " exists and is write-protected" + protection +
           ". Allow writing to it, or give the output another name.";
}

std::optional<std::string> output_refusal(const Request& request, const NamedFile& output) {
    if (output.path.empty()) {
        return "the name of the output is empty." + order_of(*request.member);
    }
    if (auto refused = folder_refusal(output.path)) return refused;
    struct stat standing {};
    if (::stat(output.path.c_str(), &standing) == 0) {
        if (auto refused = standing_refusal(request, output, standing)) return refused;
    }
    if (request.options.no_clobber && ::lstat(output.path.c_str(), &standing) == 0) {
        return output.path + " exists, and --no-clobber keeps it. Give the output another name.";
    }
    return std::nullopt;
}

/// A new file takes the place of the one that is changed, so it has to be possible in its folder.
std::optional<std::string> change_refusal(const Request& request, const NamedFile& file) {
    struct stat status {};
    if (::stat(file.path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    const std::string protection = write_protection(file.path);
    if (!protection.empty()) {
        return file.path + " is write-protected" + protection + ", and " + std::string(request.member->name) +
               " changes it. Allow writing to it, or work on a copy.";
    }
    std::error_code unknown;
    const fs::path folder = fs::canonical(file.path, unknown).parent_path();
    if (unknown || ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0) return std::nullopt;
    const std::string refused = reason(errno);
    return file.path + " cannot be changed: its folder " + folder.string() + " may not be written to (" +
           refused + "). Work on a copy elsewhere.";
}

/// To a member, a folder is a file that does not exist, and is left out of a list.
std::optional<std::string> input_folder_refusal(const Request& request) {
    const core::Member& member = *request.member;
    for (const NamedFile& input : inputs_of(member, request.arguments)) {
        if (core::is_list(core::parameter_role(member, *input.parameter))) continue;
        struct stat status {};
        if (::stat(input.path.c_str(), &status) == 0 && S_ISDIR(status.st_mode))
            return input.path + " is a folder. Name the file to read." + order_of(member);
    }
    return std::nullopt;
}

/// The member itself keeps the folder that it had when it cannot have the one it is given, and says nothing.
std::optional<std::string> temporary_folder_refusal(const std::string& folder) {
    if (folder.empty()) return std::nullopt;
    struct stat status {};
    const bool there = ::stat(folder.c_str(), &status) == 0;
    if (there && !S_ISDIR(status.st_mode)) {
        return "--temp-path: " + folder + " is no folder.";
    }
    const fs::path written =
        there ? fs::path(folder) : fs::absolute(folder / fs::path("..")).lexically_normal();
    if (::faccessat(AT_FDCWD, written.c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
        return "--temp-path: " + folder + (there ? " may not be written to (" : " cannot be made (") +
               reason(errno) + "). Name a folder that is there, or one whose parent is.";
    }
    return std::nullopt;
}

/// The control goes to the server and passes over who is there: it would go in as anonymous.
std::optional<std::string> login_refusal(const Request& request) {
    if (text_of(request.arguments, "strRemoteHost").find('@') == std::string::npos) return std::nullopt;
    return "the address of the server holds a user name or a password, which would not be used. Give them with --" +
           option_name("strUsername") + " and --" + option_name("strUserPassword") +
           ", and the server by itself." + order_of(*request.member);
}

}  // namespace

std::optional<std::string> refusal(const Request& request) {
    if (auto refused = login_refusal(request)) return refused;
    if (auto refused = temporary_folder_refusal(request.options.temp_path)) return refused;
    if (const auto output = output_of(*request.member, request.arguments)) {
        if (auto refused = output_refusal(request, *output)) return refused;
    }
    if (const auto file = changed_in_place(*request.member, request.arguments)) {
        if (auto refused = change_refusal(request, *file)) return refused;
    }
    return input_folder_refusal(request);
}

}  // namespace foliant::cli
