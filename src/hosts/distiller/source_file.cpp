#include "hosts/distiller/source_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/driver_file.h"
#include "posix/file_descriptor.h"

namespace foliant::hosts::distiller {

using posix::FileDescriptor;

namespace {

constexpr std::size_t sample_bytes = 32768;

DistillError cannot_read(const std::filesystem::path& path, const std::string& reason) {
    return DistillError("Cannot read the PostScript file " + path.string() + ": " + reason +
                        ". Check the name and the file.");
}

FileDescriptor open_ordinary_file(const std::filesystem::path& path, struct stat& status) {
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) throw cannot_read(path, system_reason(errno));
    if (::fstat(file.get(), &status) != 0) throw cannot_read(path, system_reason(errno));
    if (S_ISDIR(status.st_mode)) throw cannot_read(path, "it is a folder");
    if (!S_ISREG(status.st_mode)) throw cannot_read(path, "it is not an ordinary file");
    return file;
}

std::string read_at(const FileDescriptor& file, std::uintmax_t offset, std::size_t size,
                    const std::filesystem::path& path) {
    std::string data(size, '\0');
    std::size_t filled = 0;
    while (filled < size) {
        const auto got =
            ::pread(file.get(), data.data() + filled, size - filled, static_cast<off_t>(offset + filled));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw cannot_read(path, system_reason(errno));
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    data.resize(filled);
    return data;
}

bool begins_like_postscript(std::string_view head) {
    constexpr std::array<std::string_view, 4> openings = {
        "%!", "\x04%!", "\x1b%-12345X", "\xc5\xd0\xd3\xc6",  // plain, after end-of-job, printer job, DOS EPS
    };
    return std::any_of(openings.begin(), openings.end(),
                       [head](std::string_view opening) { return head.starts_with(opening); });
}

/// The interpreter would read a PDF as happily; a Distiller does not.
bool is_pdf(std::string_view head) {
    constexpr std::size_t header_window = 1024;
    return !head.starts_with("%!") && head.substr(0, header_window).find("%PDF-") != std::string_view::npos;
}

/// The lines of `text`, which may end in LF, CR or both, one by one until `visit` returns false.
template <typename Visit>
void for_each_line(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of("\r\n"), text.size());
        if (end > 0 && !visit(text.substr(0, end))) return;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

/// What follows "%%Pages:" in `line`, without leading blanks; none for any other line.
std::optional<std::string_view> pages_comment(std::string_view line) {
    constexpr std::string_view page_count_key = "%%Pages:";
    if (!line.starts_with(page_count_key)) return std::nullopt;
    line.remove_prefix(page_count_key.size());
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return line;
}

std::optional<int> leading_count(std::string_view text) {
    int count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc{} || count <= 0) return std::nullopt;
    return count;
}

SourceFile describe(const std::filesystem::path& path, const FileDescriptor& file, std::uintmax_t bytes) {
    const std::string head = read_at(file, 0, std::min<std::uintmax_t>(bytes, sample_bytes), path);
    if (is_pdf(head)) {
        throw DistillError("The file " + path.string() +
                           " is a PDF already, not PostScript. Give the PostScript file it was made from.");
    }
    const auto tail_start = bytes > sample_bytes ? bytes - sample_bytes : 0;
    const std::string tail = read_at(file, tail_start, sample_bytes, path);
    return {std::filesystem::absolute(path), bytes, declared_pages(head, tail), begins_like_postscript(head),
            head.find("\n%%Creator: cairo ") != std::string::npos};
}

}  // namespace

std::optional<int> declared_pages(std::string_view head, std::string_view tail) {
    std::optional<std::string_view> in_header;
    for_each_line(head, [&](std::string_view line) {
        const bool is_comment = line.starts_with("%%") || line.starts_with("%!");
        if (!in_header) in_header = pages_comment(line);
        return is_comment && !in_header && !line.starts_with("%%EndComments");
    });
    if (!in_header) return std::nullopt;
    if (!in_header->starts_with("(atend)")) return leading_count(*in_header);

    std::optional<std::string_view> at_end;
    for_each_line(tail, [&](std::string_view line) {
        const auto comment = pages_comment(line);
        if (comment && !comment->starts_with("(atend)")) at_end = comment;
        return true;
    });
    return at_end ? leading_count(*at_end) : std::nullopt;
}

std::vector<SourceFile> Source::measured_files() const {
    return parts.empty() ? std::vector<SourceFile>{main} : parts;
}

Source examine_source(const std::filesystem::path& input) {
    struct stat status = {};
    const FileDescriptor file = open_ordinary_file(input, status);
    if (status.st_size == 0) throw cannot_read(input, "it is empty");
    Source source;
    source.main = describe(input, file, static_cast<std::uintmax_t>(status.st_size));
    return source;
}

Source examine_driver(const std::filesystem::path& name, const std::vector<std::string>& lines) {
    Source source;
    source.is_driver = true;
    source.main.path = std::filesystem::absolute(name);
    source.part_names = files_of_driver(lines);
    if (source.part_names.empty())
        throw DistillError(
            "There is nothing to convert: none of the PostScript files exists. Check their names.");
    for (const std::string& part : source.part_names) {
        struct stat status = {};
        const FileDescriptor file = open_ordinary_file(part, status);
        source.parts.push_back(describe(part, file, static_cast<std::uintmax_t>(status.st_size)));
    }
    return source;
}

}  // namespace foliant::hosts::distiller
