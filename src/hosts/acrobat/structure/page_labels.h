#pragma once

#include <cstddef>
#include <map>
#include <qpdf/QPDFObjectHandle.hh>

#include "hosts/acrobat/structure/insertion.h"

namespace foliant::hosts::acrobat::structure {

/// What a document calls its pages, "i", "ii", "1" ..., in ranges by their first page.
class PageLabels {
  public:
    explicit PageLabels(Pdf& pdf);

    /// Makes room for the inserted pages, which keep the labels that they have. To be called while the target
    /// has only its old pages.
    void insert(const Insertion& insertion);
    void settle();

  private:
    using Ranges = std::map<std::size_t, QPDFObjectHandle>;

    static Ranges read(Pdf& pdf);
    /// Has a range begin at that page, with the labels that the page has already.
    static void split(Ranges& ranges, std::size_t page);

    Pdf& pdf_;
    Ranges ranges_;
    bool is_changed_ = false;
};

}  // namespace foliant::hosts::acrobat::structure
