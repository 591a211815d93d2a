#pragma once

#include <com/sun/star/beans/XPropertySet.hpp>
#include <string>
#include <vector>

#include "hosts/office/engine/layout_pause.h"

namespace foliant::hosts::office {

/// A page style of a document: what Word calls the page setup of a section. Lengths are in 1/100 mm.
using PageStyle = com::sun::star::uno::Reference<com::sun::star::beans::XPropertySet>;

/// The page styles that the pages of the document have, each once.
std::vector<PageStyle> page_styles_in_use(const DocumentModel& document);

/// The page styles of the first section: that of the document's first page, and that of the pages after it.
/// They are the same object for most documents; a title page has a style of its own.
struct SectionStyles {
    PageStyle first_page;
    PageStyle other_pages;
    bool has_title_style() const { return first_page != other_pages; }
};

SectionStyles first_section_styles(const DocumentModel& document);

}  // namespace foliant::hosts::office
