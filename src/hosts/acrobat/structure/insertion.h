#pragma once

#include <string>

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
        if (!taken.contains(name)) return name;
        for (int suffix = number + 1;; ++suffix) {
            const std::string other = name + "_" + std::to_string(suffix);
            if (!taken.contains(other)) return other;
        }
    }
};

}  // namespace foliant::hosts::acrobat::structure
