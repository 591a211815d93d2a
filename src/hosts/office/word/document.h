#pragma once

#include <filesystem>
#include <functional>

#include "automation/error.h"
#include "hosts/office/print/print_job.h"
#include "hosts/office/word/text_font.h"

namespace foliant::hosts::office {

/// An edge of the paper.
enum class Edge { top, left, right, bottom };

/// Where a page number goes.
enum class PageBand { header, footer };

/// Where in its line a page number stands; the numbers are Word's.
enum class NumberAlignment { left = 0, center = 1, right = 2 };

/// What Word has open. Changes live in memory only; the file is never written.
class Document : public virtual Printable {
  public:
    /// Closes the document and forgets the changes. Any member but `is_open` raises 4198 afterwards.
    virtual void close() = 0;
    virtual bool is_open() const noexcept = 0;

    /// How many pages there are, blank ones that are inserted before an odd page included.
    virtual int page_count() const = 0;

    /// Turns every page to landscape or portrait. Paper that already lies so stays as it is; otherwise width and height
    /// change places and the margins turn with the page, as in Word.
    virtual void set_orientation(bool landscape) = 0;
    /// Whether the first page lies in landscape.
    virtual bool is_landscape() const = 0;

    /// The distance from an edge of the first page to its text, in points.
    virtual float margin(Edge edge) const = 0;
    /// Moves the text of every page to that distance from an edge, in points. A header or footer that is in between
    /// stays where it is, and the text goes no farther than to its end. Raises 4608 for a number below 0 and for one
    /// that leaves no room for the text.
    virtual void set_margin(Edge edge, float points) = 0;

    /// Calls `use` with the font of the content.
    virtual void with_content_font(const std::function<void(TextFont&)>& use) = 0;

    /// Adds the page number in a paragraph of its own below what the header or footer of the first section holds (or in
    /// it, when it is empty). Sections with a page setup of their own are not touched, nor are headers and footers that
    /// only even pages have. With `on_first_page` false the first page gets a header and footer of its own, which keep
    /// their content but have no number.
    virtual void add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) = 0;
};

/// Word's refusal of a margin.
automation::Error no_such_margin(const std::filesystem::path& document, float points);

}  // namespace foliant::hosts::office
