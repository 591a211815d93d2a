#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/acrobat/text/folding.h"
#include "hosts/acrobat/text/page_text.h"
#include "hosts/acrobat/text/search.h"
#include "hosts/acrobat/text/text_reader.h"

namespace foliant::hosts::acrobat::text {

/// What to look for.
struct Query {
    std::string text;  ///< UTF-8
    bool case_sensitive = false;
    bool whole_words = false;
};

/// Where a search goes on from; the start of the file unless it is set.
struct Position {
    int page = 0;
    std::size_t letter = 0;  ///< of that page
};

/// A place where it was found.
struct Hit {
    int page = 0;                   ///< from 0
    std::vector<Rectangle> places;  ///< in reading order, one for each line that it stands in
    std::string context;            ///< the line around it, or lines; a long one is cut, with dots
    Position behind;                ///< where the search for the next one begins
};

/// Looks for texts in a file. The pages are read once, for all searches, as far as memory is granted for it.
/// Keeps what poppler has read of pages: it is for one thread.
class Finder {
  public:
    /// `reader` outlives this. `most_bytes` is how much of the text may stay in memory.
    Finder(TextReader& reader, std::size_t most_bytes) : reader_(reader), most_bytes_(most_bytes) {}

    /// The first hit from a position on; nothing when there is none, and for a text of blanks only. `on_page` is
    /// told each page, from 0, before it is looked at. Throws what TextReader::page does.
    std::optional<Hit> find(const Query& query, Position from = {},
                            const std::function<void(int page)>& on_page = {});

  private:
    struct Page {
        std::shared_ptr<const PageText> text;
        std::shared_ptr<const Folded> folded;
    };

    Page page(int number, Case letter_case);
    void keep(int number, const Page& page);
    void forget_pages() noexcept;

    TextReader& reader_;
    std::size_t most_bytes_;
    std::size_t kept_bytes_ = 0;
    std::vector<Page> kept_;  ///< by page; empty where it is read again
    Case kept_case_ = Case::ignored;
};

}  // namespace foliant::hosts::acrobat::text
