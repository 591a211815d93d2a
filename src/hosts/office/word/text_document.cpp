#include "hosts/office/word/text_document.h"

#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/view/XRenderable.hpp>

#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/process_guard.h"
#include "hosts/office/engine/uno_support.h"
#include "hosts/office/print/output.h"
#include "hosts/office/print/page_range.h"
#include "hosts/office/print/pdf_export.h"
#include "hosts/office/print/pdf_to_postscript.h"
#include "hosts/office/word/page_numbers.h"
#include "hosts/office/word/page_orientation.h"
#include "hosts/office/word/page_styles.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

/// Runs `work`; a failure of LibreOffice becomes an error that says what was to be done to which document.
template <typename Work>
auto translated(const LoadedDocument& document, const std::string& what, Work work) {
    try {
        const CallGuard call(document.temporary_folder);
        return work();
    } catch (const css::uno::Exception& exception) {
        throw microsoft_word.error(
            microsoft_word.command_failed,
            "Cannot " + what + " " + document.file.path.string() + ": " + from_uno(exception.Message));
    }
}

bool is_blank(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

TextDocument::TextDocument(std::unique_ptr<LoadedDocument> loaded) : loaded_(std::move(loaded)) {}

TextDocument::~TextDocument() {
    try {
        if (loaded_) close();
    } catch (const automation::Error&) {
        // A document that cannot be closed is gone with the process, which follows.
    }
}

const LoadedDocument& TextDocument::loaded() const {
    if (!loaded_) throw microsoft_word.error(microsoft_word.command_failed, "The document is closed.");
    return *loaded_;
}

std::string TextDocument::title() const {
    return loaded().file.path.filename().string();
}

void TextDocument::set_orientation(bool landscape) {
    translated(loaded(), "turn the pages of", [&] {
        const LayoutPause pause(loaded().component);
        for (const PageStyle& style : page_styles_in_use(loaded().component))
            turn_page(style, landscape);
    });
}

bool TextDocument::is_landscape() const {
    return translated(loaded(), "measure the pages of",
                      [&] { return lies_in_landscape(first_section_styles(loaded().component).first_page); });
}

void TextDocument::add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) {
    translated(loaded(), "number the pages of", [&] {
        const LayoutPause pause(loaded().component);
        add_number(loaded().component, band, alignment, on_first_page);
    });
}

int TextDocument::page_count() const {
    return translated(loaded(), "lay out", [&] {
        const Reference<css::view::XRenderable> pages(loaded().component, UNO_QUERY_THROW);
        const auto options =
            uno_sequence<css::beans::PropertyValue>({uno_argument("IsSkipEmptyPages", false)});
        return static_cast<int>(pages->getRendererCount(css::uno::Any(loaded().component), options));
    });
}

std::string TextDocument::pdf(std::string_view pages, bool for_postscript) const {
    // Counting the pages lays them out; when all are wanted, that is the exporter's work.
    const std::string runs = is_blank(pages)
                                 ? std::string()
                                 : format_page_runs(parse_page_range(
                                       pages, page_count(), loaded().file.path.string(), microsoft_word));
    return translated(loaded(), "print", [&] {
        return export_to_pdf(loaded(), runs, for_postscript ? PdfUse::postscript : PdfUse::document);
    });
}

std::string TextDocument::postscript(std::string_view pages) const {
    const std::string document = pdf(pages, true);
    try {
        return pdf_to_postscript(document, title());
    } catch (const PostScriptFailure& failure) {
        throw microsoft_word.error(
            microsoft_word.command_failed,
            "Cannot print " + loaded().file.path.string() + " as PostScript: " + failure.what() + ".");
    }
}

void TextDocument::export_pdf(std::string_view pages, const std::filesystem::path& output) const {
    write_output(output, loaded().machine, microsoft_word, [&] { return pdf(pages, false); });
}

void TextDocument::export_ps(std::string_view pages, const std::filesystem::path& output) const {
    write_output(output, loaded().machine, microsoft_word, [&] { return postscript(pages); });
}

void TextDocument::close() {
    translated(loaded(), "close",
               [&] { Reference<css::util::XCloseable>(loaded().component, UNO_QUERY_THROW)->close(true); });
    loaded_.reset();
}

}  // namespace foliant::hosts::office
