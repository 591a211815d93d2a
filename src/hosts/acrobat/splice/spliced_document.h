#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hosts/acrobat/splice/body.h"
#include "hosts/acrobat/splice/copier.h"
#include "hosts/acrobat/splice/information.h"
#include "hosts/acrobat/splice/plain_document.h"

/// Documents put together from plain files without an engine, by copying the texts of their objects: what takes an
/// engine long is to take every object apart and to put it together again. What comes of it is what the engine's room
/// makes of the same files; for files that have more than pages, links and bookmarks, or are not plain (see
/// glance/syntax.h), there is a Doubt, and the engine.
namespace foliant::hosts::acrobat::splice {

/// A document to which files are appended. The bytes of all of them are kept.
class SplicedDocument {
  public:
    /// A document without pages.
    SplicedDocument();
    /// One that begins as a file. Throws Doubt.
    explicit SplicedDocument(PlainDocument& first);

    std::size_t page_count() const noexcept { return pages_.size(); }

    /// Appends all pages of a file, with the links on them and, if wanted, its bookmarks. Throws Doubt, and is then
    /// what it was.
    void append(PlainDocument& source, bool with_bookmarks);

    /// All of it as a file.
    void write(const Body::Write& write) const;
    /// The same as a linearised file, but for a document without pages. Throws Doubt before anything is written.
    void write_linearised(const Body::Write& write) const;

  private:
    struct Bookmark {
        std::int32_t number;
        std::ptrdiff_t parent;  ///< -1 for the outermost
        bool is_open;
        std::string entries;
    };
    struct Links;

    void add_pages(PlainDocument& source, Copier& copier, Copier::Tags tags);
    void add_page(const PlainPage& page, Copier& copier, Copier::Tags tags);
    void add_bookmarks(PlainDocument& source, Copier& copier, Copier::Tags tags);
    void take_catalogue(PlainDocument& first, Copier& copier);
    void take_trailer(PlainDocument& first, Copier& copier);

    void write_page_tree(Body& tail) const;
    void write_bookmarks(Body& tail, std::int32_t outlines) const;
    std::vector<Links> links() const;
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
    std::int32_t catalogue_;
    std::int32_t page_root_;
    std::vector<std::int32_t> pages_;
    std::vector<std::int32_t> page_nodes_;  ///< that lead to them
    std::vector<Bookmark> bookmarks_;
    std::string catalogue_entries_ = "/Type /Catalog ";
    std::string trailer_entries_;
    std::string identifier_;  ///< the first one of the file that it began as
    Information information_;
    std::vector<std::shared_ptr<const void>> owners_;
};

}  // namespace foliant::hosts::acrobat::splice
