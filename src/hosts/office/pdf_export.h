#pragma once

#include <com/sun/star/lang/XComponent.hpp>
#include <string>

namespace foliant::hosts::office {

/// Who reads the PDF: a person, or the PostScript driver, which wants pictures untouched and has no use for
/// links, outlines and tags.
enum class PdfUse { document, postscript };

/// The bytes of a PDF of the document. `pages` is in LibreOffice's form (see format_page_runs); empty means
/// all. Raises a UNO exception, or automation error 61 when the result is cut short.
std::string export_to_pdf(const com::sun::star::uno::Reference<com::sun::star::lang::XComponent>& document,
                          const std::string& pages, PdfUse use);

}  // namespace foliant::hosts::office
