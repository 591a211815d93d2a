#pragma once

#include <string>

#include "hosts/acrobat/splice/unused_name.h"
#include "hosts/acrobat/structure/object_copier.h"
#include "hosts/acrobat/structure/pdf.h"

namespace foliant::hosts::acrobat::structure {

/// Pages that are being inserted into a document, for the parts of it that they add to.
struct Insertion {
    Pdf& target;
    Pdf& source;
    ObjectCopier& copier;
    std::size_t position;  ///< of the first of them among the target's pages, from 0
    std::size_t first;     ///< of the source's pages, from 0
    std::size_t count;
    int number;  ///< of this insertion into the target, from 1; names that clash get it

    bool is_whole() const { return count == source.pages().size(); }

    /// A name like `name` that none of `taken` is.
    template <typename Taken>
    std::string unused(const std::string& name, const Taken& taken) const {
        return splice::unused_name(name, number + 1,
                                   [&](const std::string& other) { return taken.contains(other); });
    }
};

}  // namespace foliant::hosts::acrobat::structure
