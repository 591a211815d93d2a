#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "hosts/machine.h"
#include "hosts/office/application.h"

namespace foliant::hosts::office {

/// What an application has open and can print. `pages` is a page-range expression (see parse_page_range);
/// blank means all.
class Printable {
  public:
    virtual ~Printable() = default;

    /// What the print job is called: the name of the file without its folder.
    virtual std::string title() const = 0;
    /// Writes pages to a PDF file, which appears complete or not at all.
    virtual void export_pdf(std::string_view pages, const std::filesystem::path& output) const = 0;
    /// The same for PostScript.
    virtual void export_ps(std::string_view pages, const std::filesystem::path& output) const = 0;
};

/// What is asked of a print.
struct PrintRequest {
    std::string output;  ///< the file to print to; empty for the printer itself
    std::string pages;   ///< a page-range expression; empty for all pages
};

/// Prints as the applications do: to PostScript in the named file; else, on the PDF printer, to the PDF file
/// that its "Save PDF File As" dialog is answered with, which Acrobat's window shows from then on; else on
/// the spooler's queue. The work is complete when it returns. Raises what the document, the machine and the
/// dialog raise, and `application`'s command_failed when the dialog is cancelled.
void print(const Printable& document, const PrintRequest& request, std::string_view printer, Machine& machine,
           const Application& application);

}  // namespace foliant::hosts::office
