#pragma once

#include "hosts/office/print/office_document.h"

namespace foliant::hosts::office {

/// A presentation open in LibreOffice.
class Presentation : public OfficeDocument {
  public:
    using OfficeDocument::OfficeDocument;

    /// Whether the slides are at least as wide as they are high.
    bool is_horizontal() const;
    /// Turns the slides that do not lie so; what is on them is made to fit (see resize_slides).
    void set_horizontal(bool horizontal);

    /// Hidden slides are among them: they are printed, as PowerPoint prints them.
    int slide_count() const;
};

}  // namespace foliant::hosts::office
