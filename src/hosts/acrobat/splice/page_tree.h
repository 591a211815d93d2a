#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "hosts/acrobat/splice/body.h"

namespace foliant::hosts::acrobat::splice {

/// The pages of a document that is being made, by the numbers of their objects, and the nodes that lead to them.
class PageTree {
  public:
    explicit PageTree(std::int32_t root) : root_(root) {}

    std::int32_t root() const noexcept { return root_; }
    std::size_t size() const noexcept { return pages_.size(); }
    const std::vector<std::int32_t>& pages() const noexcept { return pages_; }
    /// The number of a page, from 0; it is for the caller to put an object there.
    std::int32_t operator[](std::size_t page) const { return pages_[page]; }
    /// The node above it.
    std::int32_t parent_of(std::size_t page) const;
    bool contains(std::int32_t number) const;

    void add_page(Body& body);
    /// Forgets those that were added since it had `size`.
    void shrink_to(std::size_t size);

    void write(Body& tail) const;

  private:
    std::int32_t root_;
    std::vector<std::int32_t> pages_;
    std::vector<std::int32_t> nodes_;
};

}  // namespace foliant::hosts::acrobat::splice
