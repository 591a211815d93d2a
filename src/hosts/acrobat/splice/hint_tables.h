#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace foliant::hosts::acrobat::splice {

/// What the hints of a linearised file say. Offsets are those in the file without the hints; a length is that of a text
/// in the file, in bytes.
struct Hints {
    struct Page {
        std::size_t objects = 0;
        std::size_t length = 0;             ///< of those objects
        std::vector<std::size_t> shared{};  ///< their places in `shared`, which it takes besides
    };
    std::vector<Page> pages;
    std::size_t first_page_offset = 0;

    std::vector<std::size_t>
        shared;  ///< the lengths of objects that several pages may take, the first page's first
    std::size_t shared_first_page = 0;  ///< how many of them are the first page's
    std::int32_t shared_number = 0;     ///< of the first object that is not the first page's; 0 for none
    std::size_t shared_offset = 0;

    std::size_t outlines = 0;  ///< how many objects belong to bookmarks
    std::int32_t outlines_number = 0;
    std::size_t outlines_offset = 0;
    std::size_t outlines_length = 0;
};

/// The tables of hints, and where in them two of them begin.
struct HintTables {
    std::string bytes;
    std::size_t shared;
    std::size_t outlines;  ///< 0 for none
};

/// Throws Doubt where a number does not fit: no such file is larger than 4 GiB.
HintTables tables_of(const Hints& hints);

}  // namespace foliant::hosts::acrobat::splice
