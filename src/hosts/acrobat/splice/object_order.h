#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/splice/body.h"

namespace foliant::hosts::acrobat::splice {

/// All objects of a file that is to be written.
struct Whole {
    std::vector<Body::Object> objects{};  ///< by their numbers; without text where there is none, or null
    std::string trailer;                  ///< its entries, but those that say where what is
    std::int32_t catalogue = 0;
    std::int32_t outlines = 0;  ///< what bookmarks hang from; 0 for none
    std::vector<std::int32_t> pages;
};

/// Whether a reference to that number is one to nothing.
inline bool is_nothing(const Whole& whole, std::int32_t number) {
    const auto index = static_cast<std::size_t>(number);
    return index >= whole.objects.size() || whole.objects[index].text.empty();
}

/// A reference in a text.
struct Mention {
    std::size_t at;
    std::size_t length;
    std::int32_t number;
};

/// Every reference in a text of values. Throws Doubt for anything else.
std::vector<Mention> mentions_in(std::string_view text);
/// Every reference in an object as it stands in a file.
std::vector<Mention> mentions_in_object(std::string_view text);

/// The objects of a file in the order in which a reader wants them that shows the first page while the rest is still to
/// come. Each object is in one of these lists of numbers.
struct ObjectOrder {
    /// Throws Doubt for a file that takes too long to put in order. `mentions` are those of each object.
    ObjectOrder(const Whole& whole, const std::vector<std::vector<Mention>>& mentions);

    std::vector<std::int32_t> opening;     ///< the catalogue, and what else is looked at before any page
    std::vector<std::int32_t> first_page;  ///< that page, and all that it takes
    std::vector<std::vector<std::int32_t>> pages;  ///< each other page, and what it alone takes
    std::vector<std::int32_t> shared;              ///< what several other pages take
    std::vector<std::int32_t> rest;
    /// Those of bookmarks, what they hang from first; they follow each other in one of the lists above, too.
    std::vector<std::int32_t> outlines;
    /// What each other page takes of what is not its own: of the first page, and of what is shared.
    std::vector<std::vector<std::int32_t>> taken_by_page;
};

}  // namespace foliant::hosts::acrobat::splice
