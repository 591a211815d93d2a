#include "platform/local/local_files.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

#include "hosts/pending_file.h"
#include "platform/local/system_error.h"
#include "platform/name_pattern.h"
#include "posix/file_descriptor.h"

namespace foliant::platform::local {

using posix::FileDescriptor;

using automation::RuntimeError;

namespace {

constexpr std::size_t piece = 65536;
constexpr std::string_view line_end = "\r\n";

/// The system would stop at the NUL, and reach another file than the one named.
bool holds_nul(const std::string& path) noexcept {
    return path.find('\0') != std::string::npos;
}

RuntimeError of_storage(int code) noexcept {
    return code == ENOSPC || code == EDQUOT || code == EFBIG ? RuntimeError::disk_full
                                                             : RuntimeError::device_io_error;
}

bool is_refusal(int code) noexcept {
    return code == EACCES || code == EPERM || code == EROFS || code == EBUSY || code == ETXTBSY;
}

/// There cannot be anything of that name.
bool is_nowhere(int code) noexcept {
    return code == ENOENT || code == ENOTDIR || code == ENAMETOOLONG || code == ELOOP || code == EINVAL;
}

RuntimeError of_existing_file(int code) noexcept {
    if (is_nowhere(code) || code == EISDIR) return RuntimeError::file_not_found;
    return is_refusal(code) ? RuntimeError::permission_denied : of_storage(code);
}

RuntimeError of_new_entry(int code) noexcept {
    if (code == EEXIST || code == EISDIR) return RuntimeError::path_file_access;
    if (is_nowhere(code)) return RuntimeError::path_not_found;
    return is_refusal(code) ? RuntimeError::permission_denied : of_storage(code);
}

std::int64_t length_of(const ScratchTexts::Lines& lines) {
    std::size_t bytes = 0;
    for (const std::string& line : lines)
        bytes += line.size() + line_end.size();
    return static_cast<std::int64_t>(bytes);
}

/// A device or a pipe, which cannot change from nothing to complete: it is written as it is.
class Device : public hosts::OutputFile {
  public:
    explicit Device(const std::string& path)
        : path_(path), file_(::open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC)) {
        if (!file_) throw std::filesystem::filesystem_error("", path_, {errno, std::generic_category()});
    }

    int descriptor() const noexcept override { return file_.get(); }
    void write(std::string_view bytes) override { hosts::write_all(file_.get(), bytes, path_); }
    void commit() override { hosts::close_written(file_, path_); }

  private:
    std::filesystem::path path_;
    FileDescriptor file_;
};

std::unique_ptr<hosts::OutputFile> open_output(const std::string& path) {
    std::error_code none;
    if (std::filesystem::is_other(std::filesystem::status(path, none))) return std::make_unique<Device>(path);
    return std::make_unique<hosts::PendingFile>(path);
}

/// What was not closed, because the call failed or was ended, leaves what stood under the name.
class LocalText : public TextFile {
  public:
    explicit LocalText(const std::string& path) : path_(path) {
        in_own_words(of_new_entry, [&] { file_ = open_output(path); });
    }

    void write_line(std::string_view line) override {
        waiting_ += line;
        waiting_ += line_end;
        if (waiting_.size() >= piece) write_waiting();
    }

    void close() override {
        if (!file_) return;
        write_waiting();
        const auto file = std::move(file_);
        in_own_words(of_storage, [&] { file->commit(); });
    }

  private:
    void write_waiting() {
        // Lines that cannot be written are not tried again.
        const std::string text = std::exchange(waiting_, {});
        in_own_words(of_storage, [&] { file_->write(text); });
    }

    template <typename Work>
    void in_own_words(RuntimeError (*number_of)(int code) noexcept, Work work) const {
        try {
            work();
        } catch (const std::filesystem::filesystem_error& failure) {
            const int code = failure.code().value();
            throw system_error(number_of(code), "write", path_, code);
        }
    }

    std::string path_;
    std::string waiting_;
    std::unique_ptr<hosts::OutputFile> file_;
};

class LocalListing : public Listing {
  public:
    LocalListing(std::string folder, std::vector<std::string> names)
        : folder_(std::move(folder)), names_(std::move(names)) {}

    std::optional<std::string> next() override {
        while (next_ < names_.size()) {
            std::string& name = names_[next_++];
            struct stat status {};
            if (::stat((folder_ + name).c_str(), &status) == 0 && S_ISREG(status.st_mode))
                return std::move(name);
        }
        return std::nullopt;
    }

  private:
    std::string folder_;  ///< With the separator at its end; empty for the current folder.
    std::vector<std::string> names_;
    std::size_t next_ = 0;
};

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

/// The names in a folder that match and are not hidden, in no order; none when there is no such folder.
std::vector<std::string> matching_names(const std::string& path, const NamePattern& pattern) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(path.c_str()));
    if (!folder && is_nowhere(errno)) return names;
    if (!folder) throw system_error(of_existing_file(errno), "list", path, errno);
    errno = 0;
    while (const dirent* entry = ::readdir(folder.get())) {
        if (entry->d_name[0] != '.' && pattern.matches(entry->d_name)) names.emplace_back(entry->d_name);
    }
    if (errno != 0) throw system_error(RuntimeError::device_io_error, "list", path, errno);
    return names;
}

}  // namespace

std::int64_t LocalFiles::length(const std::string& path) {
    if (const ScratchTexts::Lines* const scratch = scratch_text(path)) return length_of(*scratch);
    struct stat status {};
    if (holds_nul(path) || ::stat(path.c_str(), &status) != 0) {
        const int code = holds_nul(path) ? ENOENT : errno;
        throw system_error(of_existing_file(code), "find", path, code);
    }
    if (S_ISDIR(status.st_mode)) throw system_error(RuntimeError::file_not_found, "use", path, EISDIR);
    if (!S_ISREG(status.st_mode)) {
        throw automation::Error(RuntimeError::file_not_found,
                                "File not found: " + path + " is no ordinary file.");
    }
    return status.st_size;
}

bool LocalFiles::exists_in_current_folder(const std::string& name) {
    struct stat status {};
    return !holds_nul(name) && name.find('/') == std::string::npos && ::lstat(name.c_str(), &status) == 0;
}

void LocalFiles::remove(const std::string& path) {
    if (scratch_texts_.remove(path)) return;
    if (holds_nul(path)) throw system_error(RuntimeError::file_not_found, "delete", path, ENOENT);
    if (::unlink(path.c_str()) != 0) throw system_error(of_existing_file(errno), "delete", path, errno);
}

void LocalFiles::make_folder(const std::string& path) {
    if (holds_nul(path)) throw system_error(RuntimeError::path_not_found, "make the folder", path, EINVAL);
    if (::mkdir(path.c_str(), 0777) != 0) {
        throw system_error(of_new_entry(errno), "make the folder", path, errno);
    }
}

std::unique_ptr<TextFile> LocalFiles::create_text(const std::string& path, TextPurpose purpose) {
    if (path.empty() || holds_nul(path))
        throw system_error(RuntimeError::path_file_access, "write", path, EINVAL);
    if (purpose == TextPurpose::scratch) return scratch_texts_.create(path);
    return std::make_unique<LocalText>(path);
}

std::unique_ptr<Listing> LocalFiles::list(const std::string& pattern) {
    if (holds_nul(pattern)) throw system_error(RuntimeError::bad_file_name, "list", pattern, EINVAL);
    std::string folder = pattern.substr(0, pattern.rfind('/') + 1);
    const NamePattern names_wanted(std::string_view(pattern).substr(folder.size()));
    std::vector<std::string> names = matching_names(folder.empty() ? "." : folder, names_wanted);
    std::sort(names.begin(), names.end(), comes_before);
    return std::make_unique<LocalListing>(std::move(folder), std::move(names));
}

}  // namespace foliant::platform::local
