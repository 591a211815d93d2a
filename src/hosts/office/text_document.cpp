#include "hosts/office/text_document.h"

#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/view/XRenderable.hpp>

#include "hosts/office/errors.h"
#include "hosts/office/model.h"
#include "hosts/office/output.h"
#include "hosts/office/page_numbers.h"
#include "hosts/office/page_orientation.h"
#include "hosts/office/page_range.h"
#include "hosts/office/page_styles.h"
#include "hosts/office/pdf_export.h"
#include "hosts/office/pdf_to_postscript.h"
#include "hosts/office/process_guard.h"
#include "hosts/office/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

/// Runs `work`; a failure of LibreOffice becomes an error that says what was to be done to which document.
template <typename Work>
auto translated(const TextDocument::Model& model, const std::string& what, Work work) {
    try {
        const CallGuard call(model.temporary_folder);
        return work();
    } catch (const css::uno::Exception& exception) {
        throw word_error(WordError::command_failed,
                         "Cannot " + what + " " + model.path.string() + ": " + from_uno(exception.Message));
    }
}

bool is_blank(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

TextDocument::TextDocument(std::unique_ptr<Model> model) : model_(std::move(model)) {}

TextDocument::~TextDocument() {
    try {
        if (model_) close();
    } catch (const automation::Error&) {
        // A document that cannot be closed is gone with the process, which follows.
    }
}

const TextDocument::Model& TextDocument::model() const {
    if (!model_) throw word_error(WordError::command_failed, "The document is closed.");
    return *model_;
}

std::string TextDocument::title() const {
    return model().path.filename().string();
}

void TextDocument::set_orientation(bool landscape) {
    translated(model(), "turn the pages of", [&] {
        const LayoutPause pause(model().component);
        for (const PageStyle& style : page_styles_in_use(model().component))
            turn_page(style, landscape);
    });
}

bool TextDocument::is_landscape() const {
    return translated(model(), "measure the pages of",
                      [&] { return lies_in_landscape(first_section_styles(model().component).first_page); });
}

void TextDocument::add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) {
    translated(model(), "number the pages of", [&] {
        const LayoutPause pause(model().component);
        add_number(model().component, band, alignment, on_first_page);
    });
}

int TextDocument::page_count() const {
    return translated(model(), "lay out", [&] {
        const Reference<css::view::XRenderable> pages(model().component, UNO_QUERY_THROW);
        const auto options =
            uno_sequence<css::beans::PropertyValue>({uno_argument("IsSkipEmptyPages", false)});
        return static_cast<int>(pages->getRendererCount(css::uno::Any(model().component), options));
    });
}

std::string TextDocument::pdf(std::string_view pages, bool for_postscript) const {
    // Counting the pages lays them out; when all are wanted, that is the exporter's work.
    const std::string runs =
        is_blank(pages) ? std::string()
                        : format_page_runs(parse_page_range(pages, page_count(), model().path.string()));
    return translated(model(), "print", [&] {
        return export_to_pdf(model().component, runs, for_postscript ? PdfUse::postscript : PdfUse::document);
    });
}

std::string TextDocument::postscript(std::string_view pages) const {
    const std::string document = pdf(pages, true);
    try {
        return pdf_to_postscript(document, title());
    } catch (const PostScriptFailure& failure) {
        throw word_error(WordError::command_failed,
                         "Cannot print " + model().path.string() + " as PostScript: " + failure.what() + ".");
    }
}

void TextDocument::export_pdf(std::string_view pages, const std::filesystem::path& output) const {
    write_output(output, [&] { return pdf(pages, false); });
}

void TextDocument::export_ps(std::string_view pages, const std::filesystem::path& output) const {
    write_output(output, [&] { return postscript(pages); });
}

void TextDocument::close() {
    translated(model(), "close",
               [&] { Reference<css::util::XCloseable>(model().component, UNO_QUERY_THROW)->close(true); });
    model_.reset();
}

}  // namespace foliant::hosts::office
