#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hosts/acrobat/splice/body.h"
#include "hosts/acrobat/splice/copier.h"
#include "hosts/acrobat/splice/destinations.h"
#include "hosts/acrobat/splice/information.h"
#include "hosts/acrobat/splice/outline.h"
#include "hosts/acrobat/splice/page_labels.h"
#include "hosts/acrobat/splice/page_tree.h"
#include "hosts/acrobat/splice/plain_document.h"

/// Documents put together from plain files without an engine, by copying the texts of their objects: what takes an
/// engine long is to take every object apart and to put it together again. What comes of it is what the engine's room
/// makes of the same files; for files that have more than pages, links, bookmarks, names of places and labels of pages,
/// or are not plain (see glance/syntax.h), there is a Doubt, and the engine.
namespace foliant::hosts::acrobat::splice {

/// A document to which files are appended. The bytes of all of them are kept.
class SplicedDocument {
  public:
    /// A document without pages.
    SplicedDocument();
    /// One that begins as a file. Throws Doubt.
    explicit SplicedDocument(PlainDocument& first);

    std::size_t page_count() const noexcept { return pages_.size(); }

    /// Appends all pages of a file, with the links on them, the names of places on them, their labels and, if wanted,
    /// the file's bookmarks. Throws Doubt, and is then what it was.
    void append(PlainDocument& source, bool with_bookmarks);

    /// All of it as a file.
    void write(const Body::Write& write) const;
    /// The same as a linearised file, but for a document without pages. Throws Doubt before anything is written.
    void write_linearised(const Body::Write& write) const;

  private:
    void add_all(PlainDocument& source, bool with_bookmarks);
    void reserve_pages(PlainDocument& source, Copier& copier);
    void copy_pages(PlainDocument& source, Copier& copier, Copier::Tags tags);
    void take_catalogue(PlainDocument& first, Copier& copier);
    void take_trailer(PlainDocument& first, Copier& copier);

    std::int32_t write_catalogue(Body& tail, const std::string& packet) const;
    std::string header() const;
    /// What is made when all pages are known.
    struct End {
        Body objects;
        std::int32_t outlines;  ///< 0 for none
        std::string trailer;    ///< its entries, but for the number of objects
    };
    End end() const;

    Body body_;
    int version_ = 13;
    int appended_ = 0;  ///< files
    std::int32_t catalogue_;
    PageTree pages_;
    Outline outline_;
    Destinations destinations_;
    PageLabels labels_;
    std::string catalogue_entries_ = "/Type /Catalog ";
    std::string trailer_entries_;
    std::string identifier_;  ///< the first one of the file that it began as
    Information information_;
    std::vector<std::shared_ptr<const void>> owners_;
};

}  // namespace foliant::hosts::acrobat::splice
