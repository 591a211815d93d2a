#include "hosts/acrobat/front/parts.h"

#include "hosts/acrobat/images/tiff.h"
#include "hosts/acrobat/text/page_source.h"

// In the module, what takes long to load is loaded here; programs that link its rooms, as tests do, have it in them.

namespace foliant::hosts::acrobat {

std::unique_ptr<text::PageSource> text::open_pages(const Bytes& bytes, const std::string& password) {
    static auto& open = front::load<decltype(open_pages)>(front::text_part);
    return open(bytes, password);
}

std::vector<images::Picture> images::read_tiff(const Content& file) {
    static auto& read = front::load<decltype(read_tiff)>(front::tiff_part);
    return read(file);
}

}  // namespace foliant::hosts::acrobat
