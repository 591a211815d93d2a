#pragma once

#include <memory>
#include <string>

#include "hosts/acrobat/text/page_source.h"

/// Poppler, which reads the text of pages. It takes as long to load as all else together, so that the host
/// gets it when somebody asks for text, and not before.
namespace foliant::hosts::acrobat::text {

/// A PDF file as poppler has it open.
class PopplerFile : public PageSource {
  public:
    /// As open_pages does.
    PopplerFile(Bytes bytes, const std::string& password);
    PopplerFile(const PopplerFile&) = delete;
    PopplerFile& operator=(const PopplerFile&) = delete;
    ~PopplerFile() override;

    int page_count() const override;
    PageText read(int page) override;

  private:
    struct Engine;
    std::unique_ptr<Engine> engine_;
};

}  // namespace foliant::hosts::acrobat::text
