#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjGen.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <set>
#include <string>
#include <vector>

namespace foliant::hosts::acrobat::structure {

/// What a page has from the nodes of the page tree above it, where it does not say so itself.
struct Inherited {
    QPDFObjectHandle resources;
    QPDFObjectHandle media_box;
    QPDFObjectHandle crop_box;
    QPDFObjectHandle rotate;
};

/// One page: its dictionary, always an indirect object.
struct Page {
    QPDFObjectHandle object;
    std::shared_ptr<const Inherited> inherited;

    /// The value that counts for the page, its own or the inherited one; null where there is none. `name` is
    /// any key; "/Resources", "/MediaBox", "/CropBox" and "/Rotate" are inherited.
    QPDFObjectHandle value(const std::string& name) const;
};

using PageList = std::vector<Page>;

/// The number of pages that the root of the page tree claims, where that is plausible: there are as
/// many objects, and it agrees with what its children claim. Nothing where it is not.
std::optional<std::int32_t> claimed_page_count(QPDF& pdf);

/// Finds the pages of a document in their order, one after the other. A node of the tree that is met again is
/// passed over; a page that is met again is a page again. The tree must not change meanwhile.
class PageWalk {
  public:
    /// Throws Unreadable when there is no page tree. `pdf` outlives this.
    explicit PageWalk(QPDF& pdf);

    /// The next page; nothing behind the last.
    std::optional<Page> next();

    /// How many children of nodes that it came by are no pages, and no nodes either, as in a damaged file.
    std::size_t missing() const noexcept { return missing_; }

  private:
    /// A node whose children are being gone through.
    struct Level {
        QPDFObjectHandle kids;
        std::shared_ptr<const Inherited> inherited;
        int next = 0;
    };

    void enter(QPDFObjectHandle node, const std::shared_ptr<const Inherited>& above);

    QPDF& pdf_;
    std::set<QPDFObjGen> nodes_;
    std::vector<Level> levels_;
    std::size_t missing_ = 0;
    std::optional<Page> only_page_;  ///< where the root of the tree is one
};

/// Has the root of the page tree lead to exactly these pages; what they inherited becomes their own.
void write_page_tree(QPDF& pdf, PageList& pages);

}  // namespace foliant::hosts::acrobat::structure
