#include "hosts/office/draw/drawing_kind.h"

#include "hosts/office/draw/visio_error.h"
#include "hosts/office/engine/content.h"

namespace foliant::hosts::office {

namespace {

constexpr const char* visio_filter = "Visio Document";

automation::Error no_drawing(const DocumentFile& file, std::string_view reason) {
    return not_a_document(file.path, reason, microsoft_visio);
}

ImportFilter package_filter(const DocumentFile& file, const Office& office) {
    const PackageContent content = package_content(file, office, microsoft_visio);
    for (const char* main_part : {"ms-visio.drawing.", "ms-visio.template.", "ms-visio.stencil."})
        if (content.types.find(main_part) != std::string::npos) return {visio_filter, ""};
    if (content.mimetype.starts_with("application/vnd.oasis.opendocument.graphics")) return {"draw8", ""};
    throw no_drawing(file, "it is a zip package without a Visio or OpenDocument drawing in it");
}

ImportFilter compound_file_filter(const DocumentFile& file, const Office& office) {
    if (has_stream(compound_file_streams(file, office, microsoft_visio), "VisioDocument"))
        return {visio_filter, ""};
    throw no_drawing(file, "it is a compound file without a Visio drawing in it");
}

bool is_xml_drawing(std::string_view start) {
    return skip_start(start).starts_with("<") && start.find("<VisioDocument") != std::string_view::npos;
}

}  // namespace

bool is_cut_short(const DocumentFile& file, std::string_view start) {
    return is_xml_drawing(start) &&
           whole_content(file, microsoft_visio).rfind("</VisioDocument>") == std::string::npos;
}

ImportFilter drawing_filter(const DocumentFile& file, const Office& office) {
    const std::string bytes = sample(file, microsoft_visio);
    const std::string_view start(bytes);
    if (is_package(start)) return package_filter(file, office);
    if (is_compound_file(start)) return compound_file_filter(file, office);
    if (is_cut_short(file, start))
        throw damaged(file.path, "it begins like a Visio drawing and breaks off", microsoft_visio);
    if (is_xml_drawing(start)) return {visio_filter, ""};
    if (skip_start(start).starts_with("<") && start.find("opendocument.graphics") != std::string_view::npos)
        return {"OpenDocument Drawing Flat XML", ""};
    if (start.starts_with("%PDF-")) throw no_drawing(file, "it is a PDF file");
    throw no_drawing(file, is_text(start) ? "it holds plain text" : "its content is of no known kind");
}

}  // namespace foliant::hosts::office
