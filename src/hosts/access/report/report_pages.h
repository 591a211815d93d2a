#pragma once

#include <functional>
#include <string>

#include "hosts/access/report/locale_forms.h"
#include "hosts/access/sql/datum.h"
#include "hosts/pages/page_writer.h"

namespace foliant::hosts::access {

/// What is printed of a table or query.
struct Report {
    std::string title;
    Relation records;
};

/// Lays records out as a table and writes the PDF: the title above it, headings on each page, the day and the page
/// number below. Lines that do not fit into their column are broken, records that do not fit on a page go on on the
/// next, and columns that do not fit side by side on pages across; nothing is cut. `progress` is told per cent. Throws
/// what `sink` does.
void write_report(const Report& report, const LocaleForms& forms, const pages::Paper& paper,
                  const pages::PageWriter::Sink& sink, const std::function<void(int)>& progress);

}  // namespace foliant::hosts::access
