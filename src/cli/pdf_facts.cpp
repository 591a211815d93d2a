#include "cli/pdf_facts.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/file_kind.h"
#include "posix/file_descriptor.h"

namespace foliant::cli {
namespace {

constexpr std::size_t end_within = 2048;
constexpr std::size_t dictionary_within = 65536;
constexpr int most_sections = 1000;

constexpr std::string_view white_space{"\0\t\n\f\r ", 6};
constexpr std::string_view delimiters{"\0\t\n\f\r ()<>[]{}/%", 16};

void skip_white_space(std::string_view& text) {
    const std::size_t begin = text.find_first_not_of(white_space);
    text.remove_prefix(begin == std::string_view::npos ? text.size() : begin);
}

bool take(std::string_view& text, std::string_view word) {
    skip_white_space(text);
    if (!text.starts_with(word)) return false;
    text.remove_prefix(word.size());
    return true;
}

std::optional<std::int64_t> take_number(std::string_view& text) {
    skip_white_space(text);
    std::int64_t number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc()) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

/// Behind a string that begins with a parenthesis.
void skip_string(std::string_view& text) {
    int depth = 0;
    while (!text.empty()) {
        const char c = text.front();
        text.remove_prefix(c == '\\' && text.size() > 1 ? 2 : 1);
        if (c == '(') ++depth;
        if (c == ')' && --depth == 0) return;
    }
}

/// What follows a key of the dictionary that `text` begins with; nothing when it has no such key.
std::optional<std::string_view> value_of(std::string_view text, std::string_view key) {
    int depth = 0;
    while (!text.empty()) {
        if (text.front() == '(') {
            skip_string(text);
        } else if (text.starts_with("<<")) {
            ++depth;
            text.remove_prefix(2);
        } else if (text.starts_with(">>")) {
            if (--depth <= 0) return std::nullopt;
            text.remove_prefix(2);
        } else if (depth == 1 && text.starts_with(key) && text.size() > key.size() &&
                   delimiters.find(text[key.size()]) != std::string_view::npos) {
            return text.substr(key.size());
        } else {
            text.remove_prefix(1);
        }
    }
    return std::nullopt;
}

/// A file that is read in small pieces.
class Pdf {
  public:
    explicit Pdf(const std::string& path)
        : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {
        struct stat status {};
        if (file_ && ::fstat(file_.get(), &status) == 0 && S_ISREG(status.st_mode)) size_ = status.st_size;
    }

    PdfFacts facts();

  private:
    /// Up to so many bytes from there on; "" outside the file.
    std::string at(std::int64_t offset, std::size_t bytes) const;
    std::optional<std::int64_t> last_cross_reference() const;
    std::string trailer_at(std::int64_t cross_reference) const;
    /// Where the table says that an object begins.
    std::optional<std::int64_t> place_of(std::int64_t object, std::int64_t cross_reference) const;
    /// The dictionary of the object that a value refers to, "" when it cannot be found.
    std::string referred(std::optional<std::string_view> value, std::int64_t cross_reference) const;

    posix::FileDescriptor file_;
    std::int64_t size_ = 0;
};

std::string Pdf::at(std::int64_t offset, std::size_t bytes) const {
    if (offset < 0 || offset >= size_) return {};
    std::string text(std::min(bytes, static_cast<std::size_t>(size_ - offset)), '\0');
    const ssize_t got = ::pread(file_.get(), text.data(), text.size(), offset);
    text.resize(got < 0 ? 0 : static_cast<std::size_t>(got));
    return text;
}

std::optional<std::int64_t> Pdf::last_cross_reference() const {
    const auto within = static_cast<std::int64_t>(end_within);
    const std::string end = at(size_ > within ? size_ - within : 0, end_within);
    const std::size_t start = end.rfind("startxref");
    if (start == std::string::npos || end.find("%%EOF", start) == std::string::npos) return std::nullopt;
    std::string_view rest = std::string_view(end).substr(start);
    take(rest, "startxref");
    return take_number(rest);
}

/// The dictionary behind the table, or that of the stream which is the table.
std::string Pdf::trailer_at(std::int64_t cross_reference) const {
    std::string table = at(cross_reference, dictionary_within);
    if (!table.starts_with("xref"))
        return table.find(" obj") < 32 ? table.substr(table.find(" obj") + 4) : "";
    std::string_view rest = table;
    take(rest, "xref");
    constexpr std::int64_t entry_bytes = 20;
    std::int64_t offset = cross_reference + static_cast<std::int64_t>(table.size() - rest.size());
    for (int section = 0; section < most_sections; ++section) {
        const std::string head = at(offset, dictionary_within);
        std::string_view text = head;
        if (take(text, "trailer")) return std::string(text);
        const auto first = take_number(text);
        const auto count = take_number(text);
        if (!first || !count || *count < 0 || *count > size_) return {};
        skip_white_space(text);
        offset += static_cast<std::int64_t>(head.size() - text.size()) + *count * entry_bytes;
    }
    return {};
}

std::optional<std::int64_t> Pdf::place_of(std::int64_t object, std::int64_t cross_reference) const {
    constexpr std::int64_t entry_bytes = 20;
    constexpr std::size_t head_bytes = 64;
    std::int64_t offset = cross_reference + 4;
    for (int section = 0; section < most_sections; ++section) {
        const std::string head = at(offset, head_bytes);
        std::string_view text = head;
        const auto first = take_number(text);
        const auto count = take_number(text);
        if (!first || !count || *count < 0 || *count > size_) return std::nullopt;
        skip_white_space(text);
        offset += static_cast<std::int64_t>(head.size() - text.size());
        if (object >= *first && object - *first < *count) {
            const std::string entry = at(offset + (object - *first) * entry_bytes, entry_bytes);
            std::string_view rest = entry;
            return take_number(rest);
        }
        offset += *count * entry_bytes;
    }
    return std::nullopt;
}

std::string Pdf::referred(std::optional<std::string_view> value, std::int64_t cross_reference) const {
    if (!value) return {};
    const auto object = take_number(*value);
    const auto place = object ? place_of(*object, cross_reference) : std::nullopt;
    if (!place) return {};
    const std::string text = at(*place, dictionary_within);
    std::string_view rest = text;
    if (take_number(rest) != object || !take_number(rest) || !take(rest, "obj")) return {};
    return std::string(rest);
}

PdfFacts Pdf::facts() {
    PdfFacts facts;
    if (at(0, pdf_header_within).find("%PDF-") == std::string::npos) return facts;
    const auto cross_reference = last_cross_reference();
    if (!cross_reference) return facts;
    const std::string trailer = trailer_at(*cross_reference);
    const auto root = value_of(trailer, "/Root");
    facts.complete = root.has_value();
    facts.encrypted = value_of(trailer, "/Encrypt").has_value();
    const std::string catalogue = referred(root, *cross_reference);
    const std::string pages = referred(value_of(catalogue, "/Pages"), *cross_reference);
    if (auto count = value_of(pages, "/Count")) facts.pages = take_number(*count);
    return facts;
}

}  // namespace

PdfFacts pdf_facts(const std::string& path) {
    return Pdf(path).facts();
}

}  // namespace foliant::cli
