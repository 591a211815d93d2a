#pragma once

#include <com/sun/star/container/XNameAccess.hpp>
#include <filesystem>
#include <string>
#include <string_view>

#include "hosts/document_file.h"
#include "hosts/office/application.h"
#include "hosts/office/engine/office.h"

namespace foliant::hosts::office {

// What a document's file holds, whatever it is called: LibreOffice goes by the name where it may, and prints
// noise.

/// The document is broken; `reason` follows "is damaged: ".
automation::Error damaged(const std::filesystem::path& path, std::string_view reason,
                          const Application& application);

/// It is none that `application` reads; `reason` begins with "it is" or its like.
automation::Error not_a_document(const std::filesystem::path& path, std::string_view reason,
                                 const Application& application);

/// It is encrypted, and no password was given.
automation::Error encrypted(const std::filesystem::path& path, const Application& application);

constexpr std::size_t sample_size = 65536;  // bytes

/// The first bytes of the file. Raises `damaged` when there is nothing to read.
std::string sample(const DocumentFile& file, const Application& application);

/// All of it. Raises `damaged` when it cannot be read.
std::string whole_content(const DocumentFile& file, const Application& application);

inline bool is_package(std::string_view sample) {
    return sample.starts_with("PK\x03\x04");
}
inline bool is_compound_file(std::string_view sample) {
    return sample.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
}

/// What a package (a zip file) says about itself; empty where it says nothing.
struct PackageContent {
    std::string types;     ///< "[Content_Types].xml"
    std::string mimetype;  ///< of an OpenDocument file
};

/// Raises `damaged` for a package that breaks off.
PackageContent package_content(const DocumentFile& file, const Office& office,
                               const Application& application);

using Streams = com::sun::star::uno::Reference<com::sun::star::container::XNameAccess>;

/// The streams and folders of a compound file, by name. Raises `damaged` for one that breaks off.
Streams compound_file_streams(const DocumentFile& file, const Office& office, const Application& application);

bool has_stream(const Streams& streams, std::string_view name);

/// The beginning of a stream, as much as a sample has; "" when there is none of that name, or it cannot
/// be read.
std::string stream_start(const Streams& streams, std::string_view name);

/// The extension in lower case, with its dot.
std::string extension_of(const std::filesystem::path& path);

/// The text without byte order mark and leading white space.
std::string_view skip_start(std::string_view text);

bool starts_with_any_case(std::string_view text, std::string_view start);

/// Whether there are no control characters in it that no text file holds, but for a stray one or two: many mean something
/// else than text.
bool is_text(std::string_view sample);
bool is_utf16(std::string_view sample);
/// Whether the sample is UTF-8; a character that the end of a full sample cuts in two does not count.
bool is_utf8(std::string_view sample);

}  // namespace foliant::hosts::office
