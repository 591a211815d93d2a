#include "hosts/office/pdf_export.h"

#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/io/XOutputStream.hpp>
#include <cppuhelper/implbase1.hxx>

#include "hosts/office/errors.h"
#include "hosts/office/uno_support.h"

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

Sequence<PropertyValue> pdf_options(const std::string& pages, PdfUse use) {
    std::vector<PropertyValue> options = {
        uno_argument("ExportFormFields", false),  // a printed form is filled in with a pen
        uno_argument("IsSkipEmptyPages", false),  // page numbers of the range count them
    };
    if (!pages.empty()) options.push_back(uno_argument("PageRange", to_uno(pages)));
    if (use == PdfUse::postscript) {
        // PDF/A-1 knows no transparency, nor does PostScript; LibreOffice then flattens what is transparent.
        constexpr sal_Int32 pdf_a_1b = 1;
        options.push_back(uno_argument("SelectPdfVersion", pdf_a_1b));
        // Distiller's job options decide what becomes of pictures, and not twice.
        for (const auto& [name, value] :
             {std::pair("UseLosslessCompression", true), std::pair("ReduceImageResolution", false),
              std::pair("UseTaggedPDF", false), std::pair("ExportBookmarks", false),
              std::pair("ExportNotes", false)})
            options.push_back(uno_argument(name, value));
    }
    return uno_sequence(options);
}

}  // namespace

std::string export_to_pdf(const Reference<css::lang::XComponent>& document, const std::string& pages,
                          PdfUse use) {
    const Reference<MemoryStream> stream(new MemoryStream);
    const auto arguments = uno_sequence<PropertyValue>({
        uno_argument("FilterName", to_uno("writer_pdf_Export")),
        uno_argument("FilterData", pdf_options(pages, use)),
        uno_argument("OutputStream", Reference<css::io::XOutputStream>(stream.get())),
    });
    Reference<css::frame::XStorable>(document, css::uno::UNO_QUERY_THROW)
        ->storeToURL(to_uno("private:stream"), arguments);
    // LibreOffice collects the PDF in a temporary file and does not always notice when that gets full.
    constexpr std::size_t tail = 32;
    const std::string& bytes = stream->bytes();
    if (bytes.size() < tail || bytes.find("%%EOF", bytes.size() - tail) == std::string::npos)
        throw word_error(automation::RuntimeError::disk_full,
                         "The PDF was cut short. Probably the disk of the temporary folder is full.");
    return bytes;
}

}  // namespace foliant::hosts::office
