#include "hosts/acrobat/parts.h"

#include <stdexcept>
#include <string_view>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/images/tiff.h"
#include "hosts/acrobat/text/page_source.h"
#include "hosts/missing_engine.h"
#include "hosts/module_part.h"

// In the module, what takes long to load is asked for here; programs that link its rooms, as tests do, have it in them.

namespace foliant::hosts::acrobat {

namespace {

constexpr char inside = 0;

constexpr std::string_view text_part = "acrobat-text.so";
constexpr std::string_view tiff_part = "acrobat-tiff.so";

template <typename Function>
Function& load(std::string_view part, std::string_view engine, std::string_view package) {
    try {
        return ModuleParts(&inside).load<Function>(part);
    } catch (const std::runtime_error& reason) {
        throw missing_engine(application_name, engine, reason.what(), package);
    }
}

}  // namespace

containment::Paths files_of_parts() {
    const ModuleParts parts(&inside);
    return {parts.file(text_part), parts.file(tiff_part)};
}

std::unique_ptr<text::PageSource> text::open_pages(const Bytes& bytes, const std::string& password) {
    static auto& open = load<decltype(open_pages)>(text_part, "poppler", "libpoppler126");
    return open(bytes, password);
}

std::vector<images::Picture> images::read_tiff(const Content& file) {
    static auto& read = load<decltype(read_tiff)>(tiff_part, "libtiff", "libtiff6");
    return read(file);
}

}  // namespace foliant::hosts::acrobat
