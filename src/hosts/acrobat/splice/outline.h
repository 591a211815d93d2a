#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "hosts/acrobat/splice/body.h"
#include "hosts/acrobat/splice/copier.h"
#include "hosts/acrobat/splice/page_tree.h"
#include "hosts/acrobat/splice/plain_document.h"

namespace foliant::hosts::acrobat::splice {

/// The bookmarks of a document that is being made.
class Outline {
  public:
    /// Whether bookmarks may lead anywhere, as they do in the file that the document begins as.
    enum class Places { any, pages };

    /// Adds those of a file behind those that are there, open or closed as they are. Throws Doubt for one whose place
    /// is none of the `pages`, where that is asked.
    void append(PlainDocument& source, Copier& copier, Body& body, const PageTree& pages, Places places);

    std::size_t size() const noexcept { return bookmarks_.size(); }
    /// Forgets those that were added since it had `size`.
    void shrink_to(std::size_t size) { bookmarks_.resize(size); }

    /// Returns the number of what they hang from; 0 where there are none.
    std::int32_t write(Body& tail) const;

  private:
    struct Bookmark {
        std::int32_t number = 0;
        std::ptrdiff_t parent = -1;  ///< -1 for the outermost
        bool is_open = false;
        std::string entries{};
    };
    struct Links;

    std::vector<Links> links() const;

    std::vector<Bookmark> bookmarks_;
};

}  // namespace foliant::hosts::acrobat::splice
