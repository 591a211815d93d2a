#include "cli/file_kind.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

#include "posix/file_descriptor.h"

namespace foliant::cli {
namespace {

/// Printer streams put a job header in front of PostScript.
constexpr std::size_t head_bytes = 4096;

std::string head_of(const std::string& path) {
    const posix::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!file || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    std::string head(head_bytes, '\0');
    const ssize_t got = ::pread(file.get(), head.data(), head.size(), 0);
    head.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return head;
}

/// PostScript as programs write it, behind what printers want in front of it, or with a preview.
bool is_postscript(std::string_view head) {
    constexpr std::string_view universal_exit = "\x1B%-12345X";
    constexpr std::string_view with_preview = "\xC5\xD0\xD3\xC6";
    if (head.starts_with(with_preview)) return true;
    if (head.starts_with(universal_exit)) return head.find("%!") != std::string_view::npos;
    while (head.starts_with('\x04'))
        head.remove_prefix(1);
    return head.starts_with("%!");
}

}  // namespace

FileKind file_kind(const std::string& path) {
    const std::string head = head_of(path);
    if (head.empty()) return FileKind::none;
    if (std::string_view(head).substr(0, pdf_header_within).find("%PDF-") != std::string_view::npos) {
        return FileKind::pdf;
    }
    if (is_postscript(head)) return FileKind::postscript;
    const bool binary = std::any_of(head.begin(), head.end(), [](char c) {
        constexpr std::string_view in_text = "\t\n\v\f\r\x1A\x1B";
        return static_cast<unsigned char>(c) < 0x20 && in_text.find(c) == std::string_view::npos;
    });
    return binary ? FileKind::other : FileKind::text;
}

std::string_view kind_name(FileKind kind) noexcept {
    switch (kind) {
        case FileKind::pdf:
            return "a PDF";
        case FileKind::postscript:
            return "PostScript";
        case FileKind::text:
            return "text";
        default:
            return "a file";
    }
}

FileKind kind_written(const core::Parameter& output) noexcept {
    if (output.name == "strPDFFile") return FileKind::pdf;
    if (output.name == "strPSFile") return FileKind::postscript;
    if (output.name == "strTextfile") return FileKind::text;
    return FileKind::none;
}

}  // namespace foliant::cli
