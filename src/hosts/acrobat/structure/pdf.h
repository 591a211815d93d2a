#pragma once

#include <cstdint>
#include <memory>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <utility>

#include "hosts/acrobat/structure/mapped_file.h"
#include "hosts/acrobat/structure/page_list.h"

/// PDF files as qpdf has them, without automation: opened, counted, changed and written.
///
/// A file may be hostile. It is read inside the containment, which bounds memory; what is walked here is
/// walked without recursion, and no part of it twice, so that loops end.
namespace foliant::hosts::acrobat::structure {

/// One PDF.
class Pdf {
  public:
    /// Reads a file; what is damaged is mended where its objects can be found. The password, in UTF-8, may be
    /// the user's or the owner's, and is "" where none is needed. Throws WrongPassword, or Unreadable.
    static std::shared_ptr<Pdf> open(std::shared_ptr<const MappedFile> file, const std::string& password);

    /// A document without pages.
    static std::shared_ptr<Pdf> create();

    Pdf(const Pdf&) = delete;
    Pdf& operator=(const Pdf&) = delete;

    QPDF& qpdf() noexcept { return qpdf_; }

    /// The file as it was read; null for one that was created.
    const std::shared_ptr<const MappedFile>& file() const noexcept { return file_; }

    /// How many pages it has. What the file itself says is believed where that is plausible, so the time it
    /// takes does not grow with the pages. Throws Unreadable.
    std::int32_t page_count();

    /// Its pages in their order, found when first asked for. Throws Unreadable.
    PageList& pages();

  private:
    explicit Pdf(std::shared_ptr<const MappedFile> file) : file_(std::move(file)) {}

    std::shared_ptr<const MappedFile> file_;
    QPDF qpdf_;
    std::unique_ptr<PageList> pages_;
};

}  // namespace foliant::hosts::acrobat::structure
