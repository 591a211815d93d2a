#include "hosts/office/engine/content.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <com/sun/star/io/XInputStream.hpp>
#include <com/sun/star/io/XStream.hpp>
#include <com/sun/star/lang/XMultiComponentFactory.hpp>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include "hosts/office/engine/file_stream.h"
#include "hosts/office/engine/uno_support.h"
#include "hosts/text_encoding.h"

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY;

std::string stream_text(const Reference<css::io::XInputStream>& stream) {
    css::uno::Sequence<sal_Int8> bytes;
    const sal_Int32 size = stream->readBytes(bytes, static_cast<sal_Int32>(sample_size));
    return {reinterpret_cast<const char*>(bytes.getConstArray()), static_cast<std::size_t>(size)};
}

/// Opens a container (zip package, compound file) by the UNO service that reads it.
Streams open_container(const DocumentFile& file, std::string_view service, const Office& office) {
    css::uno::Sequence<css::uno::Any> arguments(1);
    arguments.getArray()[0] <<= stream_of(file);
    return {office.context->getServiceManager()->createInstanceWithArgumentsAndContext(
                to_uno(service), arguments, office.context),
            UNO_QUERY};
}

/// Up to `wanted` bytes.
std::string read_from_start(const DocumentFile& file, std::size_t wanted, const Application& application) {
    std::string bytes(wanted, '\0');
    std::size_t size = 0;
    while (size < wanted) {
        const ssize_t got =
            ::pread(file.descriptor.get(), &bytes[size], wanted - size, static_cast<off_t>(size));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw damaged(file.path, std::strerror(errno), application);
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
    }
    bytes.resize(size);
    return bytes;
}

}  // namespace

automation::Error damaged(const std::filesystem::path& path, std::string_view reason,
                          const Application& application) {
    return application.error(application.file_corrupted,
                             path.string() + " is damaged: " + std::string(reason) +
                                 ". Open it in a program that repairs documents, or use another copy.");
}

automation::Error not_a_document(const std::filesystem::path& path, std::string_view reason,
                                 const Application& application) {
    return application.error(application.unreadable, path.string() + " is not a document that " +
                                                         std::string(application.short_name()) +
                                                         " reads: " + std::string(reason) + ". Give " +
                                                         std::string(application.reads) + ".");
}

automation::Error encrypted(const std::filesystem::path& path, const Application& application) {
    return application.error(application.wrong_password, path.string() + std::string(application.encrypted));
}

std::string sample(const DocumentFile& file, const Application& application) {
    std::string bytes = read_from_start(file, sample_size, application);
    if (bytes.empty()) throw damaged(file.path, "it is empty (0 bytes)", application);
    return bytes;
}

std::string whole_content(const DocumentFile& file, const Application& application) {
    struct stat status {};
    if (::fstat(file.descriptor.get(), &status) != 0)
        throw damaged(file.path, std::strerror(errno), application);
    return read_from_start(file, static_cast<std::size_t>(status.st_size), application);
}

PackageContent package_content(const DocumentFile& file, const Office& office,
                               const Application& application) {
    try {
        const Streams package = open_container(file, "com.sun.star.packages.zip.ZipFileAccess", office);
        return {stream_start(package, "[Content_Types].xml"), stream_start(package, "mimetype")};
    } catch (const css::uno::Exception&) {
        throw damaged(file.path, "it begins like a zip package and breaks off", application);
    }
}

Streams compound_file_streams(const DocumentFile& file, const Office& office,
                              const Application& application) {
    try {
        Streams streams = open_container(file, "com.sun.star.embed.OLESimpleStorage", office);
        streams->getElementNames();
        return streams;
    } catch (const css::uno::Exception&) {
        throw damaged(
            file.path,
            "it begins like an old " + std::string(application.short_name()) + " document and breaks off",
            application);
    }
}

bool has_stream(const Streams& streams, std::string_view name) {
    return streams->hasByName(to_uno(name));
}

std::string stream_start(const Streams& streams, std::string_view name) try {
    if (!has_stream(streams, name)) return {};
    const css::uno::Any entry = streams->getByName(to_uno(name));
    // Packages give what can be read, compound files what can be read and written.
    if (const Reference<css::io::XStream> both(entry, UNO_QUERY); both.is())
        return stream_text(both->getInputStream());
    const Reference<css::io::XInputStream> input(entry, UNO_QUERY);
    return input.is() ? stream_text(input) : std::string();
} catch (const css::uno::Exception&) {  // of a stream that is damaged
    return {};
}

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

std::string_view skip_start(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

bool is_utf16(std::string_view sample) {
    return sample.starts_with("\xFF\xFE") || sample.starts_with("\xFE\xFF");
}

bool is_text(std::string_view sample) {
    if (is_utf16(sample)) return true;
    // A text may have come by a stray control character; what is no text has many kinds.
    constexpr std::ptrdiff_t most_strays = 2;
    constexpr std::string_view usual = "\t\n\v\f\r\x1A\x1B\b";
    std::array<bool, 0x20> strays{};
    for (const char character : sample)
        if (const auto byte = static_cast<unsigned char>(character);
            byte < strays.size() && usual.find(character) == std::string_view::npos)
            strays.at(byte) = true;
    return !strays[0] && std::ranges::count(strays, true) <= most_strays;
}

bool is_utf8(std::string_view sample) {
    return hosts::is_utf8(sample, sample.size() == sample_size);
}

}  // namespace foliant::hosts::office
