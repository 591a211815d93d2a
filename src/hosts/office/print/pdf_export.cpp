#include "hosts/office/print/pdf_export.h"

#include <com/sun/star/drawing/XDrawPagesSupplier.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/io/IOException.hpp>
#include <com/sun/star/io/XOutputStream.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/text/XTextFieldsSupplier.hpp>
#include <cppuhelper/implbase1.hxx>
#include <optional>

#include "hosts/office/engine/print_mode.h"
#include "hosts/office/engine/progress_relay.h"
#include "hosts/office/engine/uno_support.h"
#include "hosts/office/print/flattening.h"
#include "hosts/office/print/form_fields.h"

namespace foliant::hosts::office {

namespace {

using css::beans::PropertyValue;
using css::uno::Reference;
using css::uno::Sequence;

/// Collects what LibreOffice writes.
class MemoryStream : public cppu::WeakImplHelper1<css::io::XOutputStream> {
  public:
    const std::string& bytes() const noexcept { return bytes_; }

    void SAL_CALL writeBytes(const Sequence<sal_Int8>& data) override {
        bytes_.append(reinterpret_cast<const char*>(data.getConstArray()),
                      static_cast<std::size_t>(data.getLength()));
    }
    void SAL_CALL flush() override {}
    void SAL_CALL closeOutput() override {}

  private:
    std::string bytes_;
};

enum class Transparency { kept, flattened };

/// Workbooks, presentations and drawings.
bool is_made_of_draw_pages(const LoadedDocument& document) {
    return Reference<css::drawing::XDrawPagesSupplier>(document.component, css::uno::UNO_QUERY).is();
}

Sequence<PropertyValue> pdf_options(const LoadedDocument& document, const std::string& pages, PdfUse use,
                                    Transparency transparency) {
    std::vector<PropertyValue> options = {
        // A printed form is filled in with a pen. But controls on slides and sheets LibreOffice draws only in parts
        // where there is no window: they come as fields, which are drawn then.
        uno_argument("ExportFormFields", is_made_of_draw_pages(document)),
        uno_argument("IsSkipEmptyPages", false),   // page numbers of the range count them
        uno_argument("ExportHiddenSlides", true),  // PowerPoint prints them
    };
    if (!pages.empty()) options.push_back(uno_argument("PageRange", to_uno(pages)));
    if (transparency == Transparency::flattened) {
        // PDF/A-1 knows none: LibreOffice then draws what lies behind into what is transparent.
        constexpr sal_Int32 pdf_a_1b = 1;
        options.push_back(uno_argument("SelectPdfVersion", pdf_a_1b));
    }
    if (use == PdfUse::postscript) {
        options.push_back(uno_argument("EmbedStandardFonts", true));
        // Distiller's job options decide what becomes of pictures, and not twice.
        for (const auto& [name, value] :
             {std::pair("UseLosslessCompression", true), std::pair("ReduceImageResolution", false),
              std::pair("UseTaggedPDF", false), std::pair("ExportNotes", false)})
            options.push_back(uno_argument(name, value));
    }
    return uno_sequence(options);
}

/// Whether a PDF of LibreOffice's uses transparency, or hides in compressed objects whether it does.
bool may_be_transparent(std::string_view pdf) {
    for (const std::string_view sign : {"/SMask", "/CA ", "/ca ", "/Transparency", "/ObjStm"})
        if (pdf.find(sign) != std::string_view::npos) return true;
    return false;
}

/// LibreOffice collects the PDF in a temporary file.
automation::Error cut_short(const LoadedDocument& document) {
    return document.application.error(
        automation::RuntimeError::disk_full,
        "The PDF was cut short. Probably the disk of the temporary folder is full, or files may not become "
        "that large (ulimit -f).");
}

/// Where the PDF goes to memory, only the temporary file is left to be written. The kind of an error comes as text alone.
bool tells_of_writing(const css::io::IOException& failure) {
    return failure.Message.indexOf("Class:Write") >= 0;
}

std::string export_once(const LoadedDocument& document, const Sequence<PropertyValue>& options) {
    const Reference<MemoryStream> stream(new MemoryStream);
    const auto arguments = uno_sequence<PropertyValue>({
        uno_argument("FilterName", to_uno(document.application.pdf_filter)),
        uno_argument("FilterData", options),
        uno_argument("OutputStream", Reference<css::io::XOutputStream>(stream.get())),
        uno_argument("StatusIndicator", relay_progress(document.machine, "Printing")),
    });
    std::optional<PrintMode> for_paper;
    if (is_made_of_draw_pages(document)) for_paper.emplace();
    try {
        Reference<css::frame::XStorable>(document.component, css::uno::UNO_QUERY_THROW)
            ->storeToURL(to_uno("private:stream"), arguments);
    } catch (const css::io::IOException& failure) {
        if (tells_of_writing(failure)) throw cut_short(document);
        throw;
    }
    // It does not always notice when that gets full.
    constexpr std::size_t tail = 32;
    const std::string& bytes = stream->bytes();
    if (bytes.size() < tail || bytes.find("%%EOF", bytes.size() - tail) == std::string::npos)
        throw cut_short(document);
    return for_paper ? with_fields_drawn(bytes) : bytes;
}

/// Takes the comments out of a document in memory. While LibreOffice flattens pages it lets its own thread
/// work, which then makes the windows that show comments beside a page; without the files of its user
/// interface it dies of that. Printed pages show no comments.
void remove_comments(const LoadedDocument& document) {
    const Reference<css::text::XTextFieldsSupplier> supplier(document.component, css::uno::UNO_QUERY);
    if (!supplier.is()) return;
    const auto fields = supplier->getTextFields()->createEnumeration();
    std::vector<Reference<css::lang::XComponent>> comments;
    while (fields->hasMoreElements()) {
        const css::uno::Any field = fields->nextElement();
        const Reference<css::lang::XServiceInfo> kind(field, css::uno::UNO_QUERY);
        if (kind.is() && kind->supportsService(to_uno("com.sun.star.text.textfield.Annotation")))
            comments.emplace_back(field, css::uno::UNO_QUERY_THROW);
    }
    for (const auto& comment : comments)
        comment->dispose();
}

}  // namespace

std::string export_to_pdf(const LoadedDocument& document, const std::string& pages, PdfUse use) {
    std::string pdf = export_once(document, pdf_options(document, pages, use, Transparency::kept));
    // PostScript knows no transparency. Few documents use any, and flattening comes with tags for every word,
    // which take as long as all the rest.
    if (use == PdfUse::postscript && may_be_transparent(pdf)) {
        remove_comments(document);
        pdf = with_flattening_mended(
            export_once(document, pdf_options(document, pages, use, Transparency::flattened)), pdf);
    }
    return pdf;
}

}  // namespace foliant::hosts::office
