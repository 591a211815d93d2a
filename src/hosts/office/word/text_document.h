#pragma once

#include <functional>
#include <memory>

#include "hosts/office/print/office_document.h"
#include "hosts/office/word/page_margins.h"

namespace foliant::hosts::office {

class ContentFont;

/// Where a page number goes.
enum class PageBand { header, footer };

/// Where in its line a page number stands; the numbers are Word's.
enum class NumberAlignment { left = 0, center = 1, right = 2 };

/// A text document open in LibreOffice.
class TextDocument : public OfficeDocument {
  public:
    explicit TextDocument(std::unique_ptr<LoadedDocument> loaded);
    ~TextDocument() override;

    /// Turns every page style in use to landscape or portrait. Paper that already lies so stays as it is;
    /// otherwise width and height change places and the margins turn with the page, as in Word.
    void set_orientation(bool landscape);

    /// Whether the first page lies in landscape.
    bool is_landscape() const;

    /// The distance from an edge of the first page to its text, in points.
    float margin(Edge edge) const;

    /// Moves the text of every page to that distance from an edge, in points (see set_text_margin). Raises
    /// 4608 for a number below 0 and for one that leaves no room for the text.
    void set_margin(Edge edge, float points);

    /// Calls `use` with the font of the content, while the layout waits.
    void with_content_font(const std::function<void(ContentFont&)>& use);

    /// Adds the page number in a paragraph of its own below what the header or footer of the first section
    /// holds (or in it, when it is empty). Sections with page styles of their own are not touched, nor are
    /// headers and footers that only even pages have. With `on_first_page` false the first page gets a header
    /// and footer of its own, which keep their content but have no number.
    void add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page);

  private:
    std::unique_ptr<ContentFont> content_font_;  ///< once somebody has asked for it
};

}  // namespace foliant::hosts::office
