#include "hosts/acrobat/print/printed_pages.h"

#include <qpdf/Constants.h>
#include <qpdf/QPDFAcroFormDocumentHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <string>

namespace foliant::hosts::acrobat::print {
namespace {

/// Layers are switched by the document's catalogue.
void keep_layers(QPDF& from, QPDF& to) {
    QPDFObjectHandle layers = from.getRoot().getKey("/OCProperties");
    if (!layers.isDictionary()) return;
    if (!layers.isIndirect()) {
        layers = from.makeIndirectObject(layers);
        from.getRoot().replaceKey("/OCProperties", layers);
    }
    to.getRoot().replaceKey("/OCProperties", to.copyForeignObject(layers));
}

/// The page as it stands alone: with what it has from the page tree above it.
QPDFObjectHandle whole_page(QPDF& from, const structure::Page& page) {
    QPDFObjectHandle copy = QPDFObjectHandle(page.object).unsafeShallowCopy();
    copy.removeKey("/Parent");
    for (const std::string name : {"/Resources", "/MediaBox", "/CropBox", "/Rotate"})
        if (QPDFObjectHandle value = page.value(name); !value.isNull()) copy.replaceKey(name, value);
    return from.makeIndirectObject(copy);
}

}  // namespace

std::shared_ptr<QPDF> printed_pages(structure::Pdf& document, std::size_t first, std::size_t last) {
    QPDF& from = document.qpdf();
    QPDFAcroFormDocumentHelper(from).generateAppearancesIfNeeded();
    std::shared_ptr<QPDF> printed = QPDF::create();
    printed->emptyPDF();
    printed->setSuppressWarnings(true);
    const structure::PageList& pages = document.pages();
    for (std::size_t i = first; i <= last; ++i) {
        QPDFObjectHandle page = whole_page(from, pages.at(i));
        printed->addPage(printed->copyForeignObject(page), false);
    }
    keep_layers(from, *printed);
    QPDFPageDocumentHelper(*printed).flattenAnnotations(an_print, an_invisible | an_hidden);
    return printed;
}

}  // namespace foliant::hosts::acrobat::print
