#include "hosts/office/word/content_kind.h"

#include <algorithm>
#include <cerrno>
#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/document/XTypeDetection.hpp>
#include <com/sun/star/io/XInputStream.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <cstring>
#include <optional>
#include <set>
#include <unistd.h>

#include "automation/text.h"
#include "hosts/office/engine/file_stream.h"
#include "hosts/office/engine/uno_support.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

namespace {

using css::container::XNameAccess;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;
using css::uno::XComponentContext;
using Context = Reference<XComponentContext>;

constexpr std::size_t sample_size = 65536;  // bytes

automation::Error damaged(const std::filesystem::path& path, std::string_view reason) {
    return microsoft_word.error(
        microsoft_word.file_corrupted,
        path.string() + " is damaged: " + std::string(reason) +
            ". Open it in a word processor that repairs documents, or use another copy.");
}

automation::Error not_a_document(const std::filesystem::path& path, std::string_view reason) {
    return microsoft_word.error(microsoft_word.unreadable,
                                path.string() + " is not a document that Word reads: " + std::string(reason) +
                                    ". Give a Word, OpenDocument, RTF, HTML or text file.");
}

/// The first bytes of the file; raises when there is nothing to read.
std::string sample(const DocumentFile& file) {
    std::string bytes(sample_size, '\0');
    const ssize_t size = ::pread(file.descriptor.get(), bytes.data(), bytes.size(), 0);
    if (size < 0) throw damaged(file.path, std::strerror(errno));
    if (size == 0) throw damaged(file.path, "it is empty (0 bytes)");
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

/// The extension in lower case, with its dot.
std::string extension_of(const std::filesystem::path& path) {
    std::string extension = path.extension().string();
    std::ranges::transform(extension, extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return extension;
}

bool starts_with_any_case(std::string_view text, std::string_view start) {
    return text.size() >= start.size() &&
           std::ranges::equal(text.substr(0, start.size()), start, [](char a, char b) {
               return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b);
           });
}

/// The text without byte order mark and leading white space.
std::string_view skip_start(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

bool is_utf16(std::string_view text) {
    return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

/// Control characters that no text file holds mean something else than text.
bool is_text(std::string_view text) {
    return is_utf16(text) || std::ranges::none_of(text, [](char character) {
               const auto byte = static_cast<unsigned char>(character);
               return byte < 0x20 &&
                      std::string_view("\t\n\v\f\r\x1A\x1B\b").find(character) == std::string_view::npos;
           });
}

/// Whether the sample is UTF-8; a character that the end of a full sample cuts in two does not count.
bool is_utf8(std::string_view text) {
    std::size_t following = 0;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (following > 0) {
            if ((byte & 0xC0U) != 0x80U) return false;
            --following;
        } else if (byte >= 0xC2 && byte <= 0xF4) {
            following = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
        } else if (byte >= 0x80) {
            return false;
        }
    }
    return following == 0 || text.size() == sample_size;
}

std::string stream_text(const Reference<css::io::XInputStream>& stream) {
    css::uno::Sequence<sal_Int8> bytes;
    const sal_Int32 size = stream->readBytes(bytes, static_cast<sal_Int32>(sample_size));
    return {reinterpret_cast<const char*>(bytes.getConstArray()), static_cast<std::size_t>(size)};
}

std::string entry_text(const Reference<XNameAccess>& package, std::string_view name) {
    if (!package->hasByName(to_uno(name))) return {};
    return stream_text(Reference<css::io::XInputStream>(package->getByName(to_uno(name)), UNO_QUERY));
}

/// Opens a container (zip package, compound file) by the UNO service that reads it.
Reference<XNameAccess> open_container(const DocumentFile& file, std::string_view service,
                                      const Context& office) {
    css::uno::Sequence<css::uno::Any> arguments(1);
    arguments.getArray()[0] <<= stream_of(file);
    return {office->getServiceManager()->createInstanceWithArgumentsAndContext(to_uno(service), arguments,
                                                                               office),
            UNO_QUERY};
}

ImportFilter package_filter(const DocumentFile& file, const Context& office) {
    std::string types;
    std::string mimetype;
    try {
        const auto package = open_container(file, "com.sun.star.packages.zip.ZipFileAccess", office);
        types = entry_text(package, "[Content_Types].xml");
        mimetype = entry_text(package, "mimetype");
    } catch (const css::uno::Exception&) {
        throw damaged(file.path, "it begins like a zip package and breaks off");
    }
    for (const char* main_part : {"wordprocessingml.document.main+xml", "wordprocessingml.template.main+xml",
                                  "ms-word.document.macroEnabled", "ms-word.template.macroEnabled"})
        if (types.find(main_part) != std::string::npos) return {"MS Word 2007 XML", ""};
    if (mimetype.starts_with("application/vnd.oasis.opendocument.text")) return {"writer8", ""};
    throw not_a_document(file.path, "it is a zip package without a Word or OpenDocument text in it");
}

ImportFilter compound_file_filter(const DocumentFile& file, const Context& office) {
    Reference<XNameAccess> streams;
    try {
        streams = open_container(file, "com.sun.star.embed.OLESimpleStorage", office);
        streams->getElementNames();
    } catch (const css::uno::Exception&) {
        throw damaged(file.path, "it begins like a Word 97 document and breaks off");
    }
    const auto has = [&](std::string_view name) { return streams->hasByName(to_uno(name)); };
    if (has("EncryptedPackage")) return {"MS Word 2007 XML", ""};
    if (!has("WordDocument"))
        throw not_a_document(file.path, "it is a compound file without a Word document in it");
    return {has("0Table") || has("1Table") ? "MS Word 97" : "MS WinWord 6.0", ""};
}

/// The properties of a type or a filter, as LibreOffice's registry of them holds them.
std::string registry_property(const Reference<XNameAccess>& registry, const rtl::OUString& name,
                              std::string_view property) {
    css::uno::Sequence<css::beans::PropertyValue> properties;
    registry->getByName(name) >>= properties;
    rtl::OUString text;
    for (sal_Int32 i = 0; i < properties.getLength(); ++i)
        if (properties.getConstArray()[i].Name == to_uno(property))
            properties.getConstArray()[i].Value >>= text;
    return from_uno(text);
}

/// Word for Windows 1 and 2 and WordPerfect by their first bytes; Word for DOS and for the Mac, Write, Works
/// ...: whatever else LibreOffice knows by its content to be a text document. The file's name is kept from
/// it, which would make it see one in anything, and its opinion on WordPerfect is not asked: a version
/// without a mark of its own is seen in noise.
std::optional<ImportFilter> old_format_filter(std::string_view start, const DocumentFile& file,
                                              const Context& office) {
    for (const std::string_view mark : {"\xDB\xA5", "\x9B\xA5", "\x9C\xA5"})
        if (start.starts_with(mark)) return ImportFilter{"MS WinWord 5", ""};
    if (start.starts_with("\xFFWPC")) return ImportFilter{"WordPerfect", ""};
    const auto manager = office->getServiceManager();
    const Reference<css::document::XTypeDetection> detection(
        manager->createInstanceWithContext(to_uno("com.sun.star.document.TypeDetection"), office),
        UNO_QUERY_THROW);
    auto descriptor = uno_sequence<css::beans::PropertyValue>(
        {uno_argument("URL", to_uno("private:stream")), uno_argument("InputStream", stream_of(file))});
    const rtl::OUString type = detection->queryTypeByDescriptor(descriptor, true);
    if (type.isEmpty()) return {};
    const std::string filter =
        registry_property(Reference<XNameAccess>(detection, UNO_QUERY_THROW), type, "PreferredFilter");
    if (filter.empty() || filter.starts_with("Text") || filter == "WordPerfect") return {};
    const Reference<XNameAccess> filters(
        manager->createInstanceWithContext(to_uno("com.sun.star.document.FilterFactory"), office),
        UNO_QUERY_THROW);
    if (registry_property(filters, to_uno(filter), "DocumentService") != "com.sun.star.text.TextDocument")
        return {};
    return ImportFilter{filter, ""};
}

ImportFilter markup_or_text_filter(const std::filesystem::path& path, std::string_view bytes) {
    const std::string extension = extension_of(path);
    const std::string_view start = skip_start(bytes);
    const bool xml = starts_with_any_case(start, "<?xml");
    const bool open_document = start.find("<office:document") != std::string_view::npos;
    if (extension != ".txt" && (xml || start.starts_with("<office:document"))) {
        if (open_document) return {"OpenDocument Text Flat XML", ""};
        if (start.find("<html") == std::string_view::npos)
            throw not_a_document(path, "it is an XML file of another kind");
    }
    const std::set<std::string> promises_more = {".docx", ".docm", ".dotx", ".dotm",
                                                 ".odt",  ".ott",  ".fodt", ".rtf"};
    if (promises_more.contains(extension))
        throw not_a_document(path, "it holds plain text, which its name does not say");
    const bool markup = starts_with_any_case(start, "<!doctype html") || starts_with_any_case(start, "<html");
    if (markup || extension == ".html" || extension == ".htm" || extension == ".xhtml")
        return {"HTML (StarWriter)", ""};
    if (is_utf16(bytes)) return {"Text (encoded)", "UNICODE,LF"};
    return {"Text (encoded)", is_utf8(bytes) ? "UTF8,LF" : "ANSI,LF"};
}

}  // namespace

ImportFilter import_filter(const DocumentFile& file, const Office& office) {
    const std::string bytes = sample(file);
    const std::string_view start(bytes);
    if (start.starts_with("PK\x03\x04")) return package_filter(file, office.context);
    if (start.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"))
        return compound_file_filter(file, office.context);
    if (start.starts_with("{\\rtf")) return {"Rich Text Format", ""};
    if (start.starts_with("%PDF-")) throw not_a_document(file.path, "it is a PDF file");
    // Its source would be printed.
    if (skip_start(start).starts_with("%!") && extension_of(file.path) != ".txt") {
        throw not_a_document(file.path, "it is a PostScript file, which CreatePDFfromPS converts");
    }
    if (!is_text(start)) {
        if (const auto filter = old_format_filter(start, file, office.context)) return *filter;
        throw not_a_document(file.path, "its content is of no known kind");
    }
    return markup_or_text_filter(file.path, start);
}

}  // namespace foliant::hosts::office
