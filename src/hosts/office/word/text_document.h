#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/office/print/print_job.h"

namespace foliant::hosts::office {

struct LoadedDocument;

/// Where a page number goes.
enum class PageBand { header, footer };

/// Where in its line a page number stands; the numbers are Word's.
enum class NumberAlignment { left = 0, center = 1, right = 2 };

/// A document open in LibreOffice. Changes live in memory only; the file is never written.
/// Every member raises 4198 when LibreOffice reports a failure, with its words.
class TextDocument : public Printable {
  public:
    explicit TextDocument(std::unique_ptr<LoadedDocument> loaded);
    TextDocument(const TextDocument&) = delete;
    TextDocument& operator=(const TextDocument&) = delete;

    /// Closes the document if `close` was not called.
    ~TextDocument() override;

    /// The name of the file without its folder; print jobs are called so.
    std::string title() const override;

    /// Turns every page style in use to landscape or portrait. Paper that already lies so stays as it is;
    /// otherwise width and height change places and the margins turn with the page, as in Word.
    void set_orientation(bool landscape);

    /// Whether the first page lies in landscape.
    bool is_landscape() const;

    /// Adds the page number in a paragraph of its own below what the header or footer of the first section
    /// holds (or in it, when it is empty). Sections with page styles of their own are not touched, nor are
    /// headers and footers that only even pages have. With `on_first_page` false the first page gets a header
    /// and footer of its own, which keep their content but have no number.
    void add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page);

    /// How many pages there are, blank ones that LibreOffice inserts before an odd page included.
    int page_count() const;

    /// Writes pages to a PDF file. `pages` is a page-range expression (see parse_page_range); blank means
    /// all. The file appears complete or not at all (see write_output). Raises 4608 for the range, 76, 70, 61
    /// or 75 for the file.
    void export_pdf(std::string_view pages, const std::filesystem::path& output) const override;

    /// Writes pages to a PostScript file (see pdf_to_postscript); the rest is as in `export_pdf`.
    void export_ps(std::string_view pages, const std::filesystem::path& output) const override;

    /// Closes the document and forgets the changes. Any member but `is_open` raises 4198 afterwards.
    void close();
    bool is_open() const noexcept { return loaded_ != nullptr; }

  private:
    const LoadedDocument& loaded() const;
    std::string pdf(std::string_view pages, bool for_postscript) const;
    std::string postscript(std::string_view pages) const;

    std::unique_ptr<LoadedDocument> loaded_;
};

}  // namespace foliant::hosts::office
