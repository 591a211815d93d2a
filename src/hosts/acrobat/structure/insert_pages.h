#pragma once

#include <cstddef>
#include <memory>

#include "hosts/acrobat/structure/destinations.h"
#include "hosts/acrobat/structure/form_fields.h"
#include "hosts/acrobat/structure/page_labels.h"
#include "hosts/acrobat/structure/pdf.h"
#include "hosts/acrobat/structure/structure_tags.h"

namespace foliant::hosts::acrobat::structure {

/// What of a document pages from others add to. It is read when the first of them come and written back by
/// `settle`, so that inserting a thousand documents takes a thousand times what one takes.
class Assembly {
  public:
    explicit Assembly(Pdf& pdf);

    /// Inserts `count` pages of the source, from `first` on, so that the first of them becomes page
    /// `position`; all from 0, and within what is there. With them come links between them, annotations, form
    /// fields, destinations, labels, layers, and, if wanted, bookmarks; from a source whose pages are all
    /// inserted also attached files and tags. The source may be closed afterwards.
    void insert(Pdf& source, std::size_t position, std::size_t first, std::size_t count, bool with_bookmarks);

    void settle();

  private:
    Pdf& pdf_;
    int insertions_ = 0;
    bool pages_changed_ = false;
    Destinations destinations_;
    NamedObjects attachments_;
    FormFields form_;
    PageLabels labels_;
    StructureTags tags_;
};

}  // namespace foliant::hosts::acrobat::structure
