#pragma once

#include <optional>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <vector>

/// What leads to places of a PDF, on qpdf: bookmarks, and links on pages. Knows no automation. Documents may be
/// hostile: what is walked is walked without recursion, and no part of it twice.
namespace foliant::hosts::acrobat::outline {

/// A place on a page.
struct Target {
    QPDFObjectHandle page;
    /// In the page's own coordinates: what comes to the upper left corner of the window. The page as it is
    /// shown otherwise where there is none.
    std::optional<double> left;
    std::optional<double> top;
};

/// Adds a bookmark behind those of the highest level. `title` is UTF-8.
QPDFObjectHandle add_bookmark(QPDF& pdf, const std::string& title, const Target& target);

/// The first bookmark of that title, in the order in which they are listed when all are unfolded.
std::optional<QPDFObjectHandle> find_bookmark(QPDF& pdf, const std::string& title);

/// The title as UTF-8; "" for a bookmark without one.
std::string title_of(QPDFObjectHandle bookmark);

void set_title(QPDFObjectHandle bookmark, const std::string& title);

}  // namespace foliant::hosts::acrobat::outline
