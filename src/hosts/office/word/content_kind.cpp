#include "hosts/office/word/content_kind.h"

#include <cstring>
#include <optional>
#include <set>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

#include "hosts/office/engine/content.h"
#include "hosts/office/engine/detected_kind.h"
#include "hosts/office/word/text_lines.h"
#include "hosts/office/word/word_error.h"
#include "hosts/text_encoding.h"

namespace foliant::hosts::office {

namespace {

automation::Error no_text_document(const std::filesystem::path& path, std::string_view reason) {
    return not_a_document(path, reason, microsoft_word);
}

ImportFilter package_filter(const DocumentFile& file, const Office& office) {
    const PackageContent content = package_content(file, office, microsoft_word);
    for (const char* main_part : {"wordprocessingml.document.main+xml", "wordprocessingml.template.main+xml",
                                  "ms-word.document.macroEnabled", "ms-word.template.macroEnabled"})
        if (content.types.find(main_part) != std::string::npos) return {"MS Word 2007 XML", ""};
    if (content.mimetype.starts_with("application/vnd.oasis.opendocument.text")) return {"writer8", ""};
    throw no_text_document(file.path, "it is a zip package without a Word or OpenDocument text in it");
}

ImportFilter compound_file_filter(const DocumentFile& file, const Office& office) {
    const Streams streams = compound_file_streams(file, office, microsoft_word);
    const auto has = [&](std::string_view name) { return has_stream(streams, name); };
    if (has("EncryptedPackage")) return {"MS Word 2007 XML", ""};
    if (!has("WordDocument"))
        throw no_text_document(file.path, "it is a compound file without a Word document in it");
    return {has("0Table") || has("1Table") ? "MS Word 97" : "MS WinWord 6.0", ""};
}

/// Word for Windows 1 and 2 and WordPerfect by their first bytes; Word for DOS and for the Mac, Write, Works
/// ...: whatever else LibreOffice knows by its content to be a text document.
std::optional<ImportFilter> old_format_filter(std::string_view start, const DocumentFile& file,
                                              const Office& office) {
    for (const std::string_view mark : {"\xDB\xA5", "\x9B\xA5", "\x9C\xA5"})
        if (start.starts_with(mark)) return ImportFilter{"MS WinWord 5", ""};
    if (start.starts_with("\xFFWPC")) return ImportFilter{"WordPerfect", ""};
    const auto kind = detect_kind(file, office);
    if (!kind || kind->service != "com.sun.star.text.TextDocument") return {};
    return ImportFilter{kind->filter, ""};
}

/// As LibreOffice's import of texts calls it.
std::string code_page_name(int code_page) {
    constexpr int western_european = 1252;
    return code_page == western_european ? "ANSI" : "MS_" + std::to_string(code_page);
}

LineForm line_form(std::string_view sample) {
    using Unit = LineForm::Unit;
    if (is_utf16(sample))
        return {sample[0] == '\xFF' ? Unit::utf16_little_endian : Unit::utf16_big_endian, '\n'};
    const bool old_mac =
        sample.find('\n') == std::string_view::npos && sample.find('\r') != std::string_view::npos;
    return {Unit::byte, old_mac ? '\r' : '\n'};
}

/// An open file that exists in memory only.
posix::FileDescriptor file_of(std::string_view content) {
    posix::FileDescriptor file(::memfd_create("text", MFD_CLOEXEC));
    while (file && !content.empty()) {
        const ssize_t written = ::write(file.get(), content.data(), content.size());
        if (written < 0) return {};
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return file;
}

ImportFilter plain_text(DocumentFile& file, std::string_view sample) {
    posix::FileDescriptor joined =
        file_of(with_lines_joined(whole_content(file, microsoft_word), line_form(sample)));
    if (!joined) throw damaged(file.path, std::strerror(errno), microsoft_word);
    file.descriptor = std::move(joined);
    const std::string encoding = is_utf16(sample)  ? "UNICODE"
                                 : is_utf8(sample) ? "UTF8"
                                                   : code_page_name(text_code_page(character_locale()));
    return {"Text (encoded)", encoding + ",CR"};
}

/// How a text with marks in it is read; nothing for a plain one. Raises 5151 for marks that Word does not know, and for
/// a name that promises more than text.
std::optional<ImportFilter> markup_filter(const std::filesystem::path& path, std::string_view bytes) {
    const std::string extension = extension_of(path);
    const std::string_view start = skip_start(bytes);
    const bool xml = starts_with_any_case(start, "<?xml");
    const bool open_document = start.find("<office:document") != std::string_view::npos;
    if (extension != ".txt" && (xml || start.starts_with("<office:document"))) {
        if (open_document) return ImportFilter{"OpenDocument Text Flat XML", ""};
        if (start.find("<html") == std::string_view::npos)
            throw no_text_document(path, "it is an XML file of another kind");
    }
    const std::set<std::string> promises_more = {".docx", ".docm", ".dotx", ".dotm",
                                                 ".odt",  ".ott",  ".fodt", ".rtf"};
    if (promises_more.contains(extension))
        throw no_text_document(path, "it holds plain text, which its name does not say");
    const bool markup = starts_with_any_case(start, "<!doctype html") || starts_with_any_case(start, "<html");
    if (markup || extension == ".html" || extension == ".htm" || extension == ".xhtml")
        return ImportFilter{"HTML (StarWriter)", ""};
    return std::nullopt;
}

bool is_rich_text(std::string_view start) {
    return start.starts_with("{\\rtf");
}
bool is_pdf(std::string_view start) {
    return start.starts_with("%PDF-");
}
/// Its source would be printed.
bool is_postscript(std::string_view start, const std::filesystem::path& path) {
    return skip_start(start).starts_with("%!") && extension_of(path) != ".txt";
}

}  // namespace

bool is_plain_text(const DocumentFile& file) {
    const std::string bytes = sample(file, microsoft_word);
    if (is_package(bytes) || is_compound_file(bytes) || is_rich_text(bytes) || is_pdf(bytes) ||
        is_postscript(bytes, file.path))
        return false;
    return is_text(bytes) && !markup_filter(file.path, bytes);
}

ImportFilter import_filter(DocumentFile& file, const Office& office) {
    const std::string bytes = sample(file, microsoft_word);
    const std::string_view start(bytes);
    if (is_package(start)) return package_filter(file, office);
    if (is_compound_file(start)) return compound_file_filter(file, office);
    if (is_rich_text(start)) return {"Rich Text Format", ""};
    if (is_pdf(start)) throw no_text_document(file.path, "it is a PDF file");
    if (is_postscript(start, file.path))
        throw no_text_document(file.path, "it is a PostScript file, which CreatePDFfromPS converts");
    if (!is_text(start)) {
        if (const auto filter = old_format_filter(start, file, office)) return *filter;
        throw no_text_document(file.path, "its content is of no known kind");
    }
    if (const auto filter = markup_filter(file.path, start)) return *filter;
    return plain_text(file, start);
}

}  // namespace foliant::hosts::office
