#include "hosts/autocad/open_drawing.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "hosts/autocad/autocad_error.h"
#include "hosts/autocad/drawing/read_file.h"
#include "hosts/autocad/dwg_reader.h"

namespace foliant::hosts::autocad {
namespace {

std::string cannot_open(const std::filesystem::path& path) {
    return "AutoCAD cannot open " + path.string() + ": ";
}

DocumentFile open_file(Machine& machine, const std::string& path) {
    try {
        return machine.open_document(path);
    } catch (const std::filesystem::filesystem_error& failure) {
        const auto number = failure.code() == std::errc::no_such_file_or_directory
                                ? automation::RuntimeError::file_not_found
                                : automation::RuntimeError::path_file_access;
        throw autocad_error(static_cast<std::int32_t>(number),
                            cannot_open(path) + failure.code().message() + ".");
    }
}

/// Every release begins with its version: AC1.2, AC1015 ...
bool is_dwg(std::string_view bytes) {
    const auto is_sign = [](char letter) {
        return std::isdigit(static_cast<unsigned char>(letter)) != 0 || letter == '.';
    };
    return bytes.size() > 6 && (bytes.starts_with("AC") || bytes.starts_with("MC0.0")) &&
           std::all_of(bytes.begin() + 2, bytes.begin() + 5, is_sign);
}

/// What a file is that is no drawing; nothing when nobody knows.
std::string other_kind(std::string_view bytes) {
    using namespace std::string_view_literals;
    constexpr std::array kinds{
        std::pair{"%PDF-"sv, "it is a PDF file"}, std::pair{"PK\x03\x04"sv, "it is a zip package"},
        std::pair{"\xD0\xCF\x11\xE0"sv, "it is a compound file"}, std::pair{"\x89PNG"sv, "it is an image"},
        std::pair{"\xFF\xD8\xFF"sv, "it is an image"}};
    for (const auto& [start, kind] : kinds)
        if (bytes.starts_with(start)) return kind;
    if (std::ranges::all_of(bytes, [](char byte) { return byte == '\0'; })) return "it is empty";
    return {};
}

DwgContent content_of_dwg(Machine& machine, const DocumentFile& file) {
    constexpr const char* instead =
        " Have the program that it was drawn with save it as DXF, of any release from R12 to 2018.";
    const auto reader = find_dwg_reader();
    if (!reader)
        throw autocad_error(general_failure,
                            cannot_open(file.path) +
                                "a .dwg takes Node.js 20.15 or later, as /usr/local/bin/node or "
                                "/usr/bin/node, and LibreDWG, which scripts/install-libredwg brings." +
                                instead);
    try {
        return read_dwg(*reader, file.place, machine.private_folder());
    } catch (const DwgFailure& failure) {
        throw autocad_error(general_failure, cannot_open(file.path) + "it " + failure.what() + "." + instead);
    }
}

}  // namespace

std::shared_ptr<const OpenDrawing> open_drawing(Machine& machine, const std::string& path) {
    const DocumentFile file = open_file(machine, path);
    std::string bytes = read_file(file.descriptor.get());
    std::optional<NameSet> layers_off;
    if (is_dwg(bytes)) {
        DwgContent content = content_of_dwg(machine, file);
        bytes = std::move(content.dxf);
        layers_off = std::move(content.layers_off);
    } else if (const std::string kind = other_kind(bytes); !kind.empty()) {
        throw autocad_error(general_failure, cannot_open(file.path) + kind + ", and no drawing.");
    }
    try {
        return std::make_shared<OpenDrawing>(file.path, std::move(bytes), std::move(layers_off));
    } catch (const Unreadable& failure) {
        throw autocad_error(general_failure,
                            cannot_open(file.path) + "as a DXF file it " + failure.what() + ".");
    }
}

}  // namespace foliant::hosts::autocad
