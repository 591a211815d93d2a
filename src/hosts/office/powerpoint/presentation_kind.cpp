#include "hosts/office/powerpoint/presentation_kind.h"

#include "hosts/office/engine/content.h"
#include "hosts/office/engine/detected_kind.h"
#include "hosts/office/powerpoint/powerpoint_error.h"

namespace foliant::hosts::office {

namespace {

automation::Error no_presentation(const DocumentFile& file, std::string_view reason) {
    return not_a_document(file.path, reason, microsoft_powerpoint);
}

ImportFilter package_filter(const DocumentFile& file, const Office& office) {
    const PackageContent content = package_content(file, office, microsoft_powerpoint);
    for (const char* main_part :
         {"presentationml.presentation.main+xml", "presentationml.slideshow.main+xml",
          "presentationml.template.main+xml", "ms-powerpoint.presentation.macroEnabled",
          "ms-powerpoint.slideshow.macroEnabled", "ms-powerpoint.template.macroEnabled"})
        if (content.types.find(main_part) != std::string::npos) return {"Impress MS PowerPoint 2007 XML", ""};
    if (content.mimetype.starts_with("application/vnd.oasis.opendocument.presentation"))
        return {"impress8", ""};
    throw no_presentation(file,
                          "it is a zip package without a PowerPoint or OpenDocument presentation in it");
}

constexpr const char* main_stream = "PowerPoint Document";

/// Since PowerPoint 97 that is the first record in most presentations; 95 has none of the kind in a stream of that name.
bool begins_with_document(std::string_view stream) {
    return stream.substr(0, 4).ends_with("\xE8\x03");
}

ImportFilter presentation_97() {
    return {"MS PowerPoint 97", ""};
}

ImportFilter compound_file_filter(const DocumentFile& file, const Office& office) {
    const Streams streams = compound_file_streams(file, office, microsoft_powerpoint);
    if (has_stream(streams, "EncryptedPackage")) return {"Impress MS PowerPoint 2007 XML", ""};
    if (is_encrypted_presentation(streams)) throw encrypted(file.path, microsoft_powerpoint);
    if (begins_with_document(stream_start(streams, main_stream))) return presentation_97();
    if (has_stream(streams, main_stream) || has_stream(streams, "PP40"))
        if (const auto kind = detect_kind(file, office)) return {kind->filter, ""};
    if (has_stream(streams, main_stream)) return presentation_97();
    throw no_presentation(file, "it is a compound file without a PowerPoint presentation in it");
}

}  // namespace

bool is_encrypted_presentation(const Streams& streams) {
    // The stream that every presentation has for its last user, encrypted or not, says so behind the record's
    // header and the size of what follows.
    constexpr std::size_t token = 12;
    return stream_start(streams, "Current User").substr(0, token + 4).ends_with("\xDF\xC4\xD1\xF3");
}

ImportFilter presentation_filter(const DocumentFile& file, const Office& office) {
    const std::string bytes = sample(file, microsoft_powerpoint);
    const std::string_view start(bytes);
    if (is_package(start)) return package_filter(file, office);
    if (is_compound_file(start)) return compound_file_filter(file, office);
    if (skip_start(start).starts_with("<?xml") &&
        start.find("opendocument.presentation") != std::string_view::npos)
        return {"OpenDocument Presentation Flat XML", ""};
    if (start.starts_with("%PDF-")) throw no_presentation(file, "it is a PDF file");
    throw no_presentation(file, is_text(start) ? "it holds plain text" : "its content is of no known kind");
}

}  // namespace foliant::hosts::office
