#include "hosts/office/print/office_document.h"

#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/view/XRenderable.hpp>

#include "hosts/office/engine/layout_pause.h"
#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/translated.h"
#include "hosts/office/print/output.h"
#include "hosts/office/print/page_range.h"
#include "hosts/office/print/pdf_export.h"
#include "hosts/office/print/pdf_to_postscript.h"

namespace foliant::hosts::office {

namespace {

using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

bool is_blank(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

}  // namespace

OfficeDocument::OfficeDocument(std::unique_ptr<LoadedDocument> loaded)
    : loaded_(std::move(loaded)), application_(loaded_->application) {}

OfficeDocument::~OfficeDocument() {
    try {
        if (loaded_) close();
    } catch (const automation::Error&) {
        // A document that cannot be closed is gone with the process, which follows.
    }
}

const LoadedDocument& OfficeDocument::loaded() const {
    if (!loaded_) throw application_.error(application_.command_failed, "The document is closed.");
    return *loaded_;
}

void OfficeDocument::pause_layout() {
    if (!pause_) pause_ = std::make_unique<LayoutPause>(loaded().component);
}

std::string OfficeDocument::title() const {
    return loaded().file.path.filename().string();
}

int OfficeDocument::page_count() const {
    return translated(loaded(), "lay out", [&] {
        pause_.reset();
        const Reference<css::view::XRenderable> pages(loaded().component, UNO_QUERY_THROW);
        const auto options =
            uno_sequence<css::beans::PropertyValue>({uno_argument("IsSkipEmptyPages", false)});
        return static_cast<int>(pages->getRendererCount(css::uno::Any(loaded().component), options));
    });
}

std::string OfficeDocument::pdf(std::string_view pages, bool for_postscript) const {
    // Counting the pages lays them out; when all are wanted, that is the exporter's work.
    const std::string runs = is_blank(pages)
                                 ? std::string()
                                 : format_page_runs(parse_page_range(
                                       pages, page_count(), loaded().file.path.string(), application_));
    std::string bytes = translated(loaded(), "print", [&] {
        pause_.reset();
        return export_to_pdf(loaded(), runs, for_postscript ? PdfUse::postscript : PdfUse::document);
    });
    return runs.empty() ? finished(std::move(bytes)) : bytes;
}

std::string OfficeDocument::postscript(std::string_view pages) const {
    try {
        return pdf_to_postscript(pdf(pages, true), title());
    } catch (const PostScriptFailure& failure) {
        throw application_.error(application_.command_failed, "Cannot print " + loaded().file.path.string() +
                                                                  " as PostScript: " + failure.what() + ".");
    }
}

void OfficeDocument::export_pdf(std::string_view pages, const std::filesystem::path& output) const {
    write_output(output, loaded().machine, application_, [&] { return pdf(pages, false); });
}

void OfficeDocument::export_ps(std::string_view pages, const std::filesystem::path& output) const {
    write_output(output, loaded().machine, application_, [&] { return postscript(pages); });
}

void OfficeDocument::close() {
    translated(loaded(), "close",
               [&] { Reference<css::util::XCloseable>(loaded().component, UNO_QUERY_THROW)->close(true); });
    loaded_.reset();
    pause_.reset();  // last: what is closed is not laid out once more
}

}  // namespace foliant::hosts::office
