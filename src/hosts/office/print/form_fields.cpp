#include "hosts/office/print/form_fields.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <vector>

#include "hosts/office/print/field_texts.h"
#include "hosts/office/print/written_pdf.h"

namespace foliant::hosts::office {

namespace {

constexpr const char* annotations = "/Annots";

/// The links, comments and so on of a page. Only its fields stay there.
std::vector<QPDFObjectHandle> take_all_but_fields(QPDFObjectHandle page) {
    std::vector<QPDFObjectHandle> fields;
    std::vector<QPDFObjectHandle> others;
    QPDFObjectHandle all = page.getKey(annotations);
    if (!all.isArray()) return others;
    for (QPDFObjectHandle& annotation : all.aitems())
        (annotation.getKey("/Subtype").isNameAndEquals("/Widget") ? fields : others).push_back(annotation);
    page.replaceKey(annotations, QPDFObjectHandle::newArray(fields));
    return others;
}

/// qpdf draws the fields, and would lose whatever else has no look of its own, such as links.
void draw_fields(QPDF& document) {
    QPDFPageDocumentHelper helper(document);
    std::vector<std::vector<QPDFObjectHandle>> others;
    for (QPDFPageObjectHelper& page : helper.getAllPages())
        others.push_back(take_all_but_fields(page.getObjectHandle()));
    helper.flattenAnnotations();
    auto kept = others.cbegin();
    for (QPDFPageObjectHelper& page : helper.getAllPages())
        if (const auto& annotations_of_page = *kept++; !annotations_of_page.empty())
            page.getObjectHandle().replaceKey(annotations, QPDFObjectHandle::newArray(annotations_of_page));
}

}  // namespace

std::string with_fields_drawn(std::string pdf) {
    if (pdf.find("/AcroForm") == std::string::npos) return pdf;
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("document", pdf.data(), pdf.size());
    QPDFObjectHandle form = document.getRoot().getKey("/AcroForm");
    if (!form.isDictionary()) return pdf;
    // LibreOffice asks viewers to draw the fields anew, and yet says how they look.
    form.removeKey("/NeedAppearances");
    QPDF looks;
    draw_field_texts(document, looks);
    draw_fields(document);
    return written_pdf(document);
}

}  // namespace foliant::hosts::office
