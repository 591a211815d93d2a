#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "hosts/office/print/print_job.h"

namespace foliant::hosts::office {

class LayoutPause;
struct LoadedDocument;

/// A document open in LibreOffice, whichever application it belongs to. Changes live in memory only; the file
/// is never written. Every member raises the application's command_failed when LibreOffice reports a failure,
/// with its words.
class OfficeDocument : public virtual Printable {
  public:
    explicit OfficeDocument(std::unique_ptr<LoadedDocument> loaded);
    OfficeDocument(const OfficeDocument&) = delete;
    OfficeDocument& operator=(const OfficeDocument&) = delete;

    /// Closes the document if `close` was not called.
    ~OfficeDocument() override;

    /// The name of the file without its folder; print jobs are called so.
    std::string title() const override;

    /// How many pages there are, blank ones that LibreOffice inserts before an odd page included.
    int page_count() const;

    /// Writes pages to a PDF file. `pages` is a page-range expression (see parse_page_range); blank means
    /// all. The file appears complete or not at all (see write_output). Raises value_out_of_range for the
    /// range, 76, 70, 61 or 75 for the file.
    void export_pdf(std::string_view pages, const std::filesystem::path& output) const override;

    /// Writes pages to a PostScript file (see pdf_to_postscript); the rest is as in `export_pdf`.
    void export_ps(std::string_view pages, const std::filesystem::path& output) const override;

    /// Closes the document and forgets the changes. Any member but `is_open` raises command_failed afterwards.
    void close();
    bool is_open() const noexcept { return loaded_ != nullptr; }

  protected:
    const LoadedDocument& loaded() const;

    /// What becomes of the PDF of all pages before anybody gets it: itself, where an application does not say more.
    virtual std::string finished(std::string pdf) const { return pdf; }

    /// Holds the layout still until pages are counted or printed, so that all changes together cost one.
    void pause_layout();

  private:
    std::string pdf(std::string_view pages, bool for_postscript) const;
    std::string postscript(std::string_view pages) const;

    std::unique_ptr<LoadedDocument> loaded_;
    mutable std::unique_ptr<LayoutPause> pause_;  ///< that it ends is nothing that a caller sees
    const Application& application_;
};

}  // namespace foliant::hosts::office
