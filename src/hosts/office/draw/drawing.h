#pragma once

#include "hosts/office/print/office_document.h"

namespace foliant::hosts::office {

/// A drawing open in LibreOffice, whose model has one size for all pages; printed, each has its own.
class Drawing : public OfficeDocument {
  public:
    using OfficeDocument::OfficeDocument;

  protected:
    std::string finished(std::string pdf) const override;
};

}  // namespace foliant::hosts::office
