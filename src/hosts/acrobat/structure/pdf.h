#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <qpdf/PDFVersion.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <utility>
#include <vector>

#include "hosts/acrobat/structure/page_list.h"
#include "hosts/acrobat/structure/protection.h"
#include "hosts/acrobat/structure/rights.h"
#include "hosts/mapped_file.h"

/// PDF files as qpdf has them, without automation: opened, counted, changed and written.
///
/// A file may be hostile. It is read inside the containment, which bounds memory; what is walked here is
/// walked without recursion, and no part of it twice, so that loops end.
namespace foliant::hosts::acrobat::structure {

class Assembly;

/// One PDF.
class Pdf : public std::enable_shared_from_this<Pdf> {
  public:
    /// Reads a file; what is damaged is mended where its objects can be found. The password, in UTF-8, may be
    /// the user's or the owner's, and is "" where none is needed. Throws WrongPassword, or Unreadable.
    static std::shared_ptr<Pdf> open(std::shared_ptr<const MappedFile> file, const std::string& password);

    /// A document without pages.
    static std::shared_ptr<Pdf> create();

    Pdf(const Pdf&) = delete;
    Pdf& operator=(const Pdf&) = delete;
    ~Pdf();

    QPDF& qpdf() noexcept { return qpdf_; }

    /// The file as it was read; null for one that was created.
    const std::shared_ptr<const MappedFile>& file() const noexcept { return file_; }

    /// How many pages it has. What the file itself says is believed where that is plausible, so the time it
    /// takes does not grow with the pages. Throws Unreadable.
    std::int32_t page_count();

    /// Has the root of the pages say how many there are, for readers that believe it whatever it says. Throws Unreadable.
    void mend_page_count();

    /// Its pages in their order, found when first asked for. Throws Unreadable.
    PageList& pages();

    /// How many pages are known to be missing: the file is damaged. 0 as long as not all were looked for.
    std::size_t missing_pages() const noexcept { return missing_pages_; }

    /// One of them, counted from 0, without looking for those behind it; nothing where there is none of that
    /// number. Throws Unreadable.
    std::optional<Page> page(std::size_t number);

    /// Whether that may be done with it, by whoever has opened it.
    bool allows(Right right) { return structure::allows(qpdf_, right); }

    /// Inserts pages of another document; see Assembly.
    void insert_pages(Pdf& source, std::size_t position, std::size_t first, std::size_t count,
                      bool with_bookmarks);

    /// Has the objects say what was gathered in inserting pages; before they are written or looked at.
    void settle();

    /// To be told after each change, also of objects that were changed through `qpdf`.
    void note_change() noexcept { ++revision_; }
    /// Grows with each change.
    std::uint64_t revision() const noexcept { return revision_; }
    /// Whether it still is what its file says.
    bool is_as_read() const noexcept { return file_ != nullptr && revision_ == 0; }

    /// Holds on to a file whose bytes objects of this document refer to.
    void keep(const std::shared_ptr<const MappedFile>& file);

    /// What it is to be protected with from the next time that it is written; nothing leaves it as it is.
    const std::optional<Protection>& protection() const noexcept { return protection_; }
    void protect(Protection protection) {
        protection_ = std::move(protection);
        note_change();
    }

    /// The version of PDF that it takes to read this.
    const PDFVersion& version() const noexcept { return version_; }
    void require_version_of(const Pdf& other) { version_.updateIfGreater(other.version_); }

  private:
    explicit Pdf(std::shared_ptr<const MappedFile> file);

    /// Finds the pages up to that number.
    void find_pages(std::size_t last);

    std::shared_ptr<const MappedFile> file_;
    QPDF qpdf_;
    PDFVersion version_;
    PageList pages_;
    std::optional<PageWalk> walk_;  ///< finds those that are not in `pages_` yet
    bool has_all_pages_ = false;
    std::size_t missing_pages_ = 0;
    std::unique_ptr<Assembly> assembly_;
    std::optional<Protection> protection_;
    std::uint64_t revision_ = 0;
    std::vector<std::shared_ptr<const MappedFile>> kept_;
};

}  // namespace foliant::hosts::acrobat::structure
