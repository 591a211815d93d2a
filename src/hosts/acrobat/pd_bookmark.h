#pragma once

#include <optional>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>

#include "automation/value.h"
#include "hosts/acrobat/document.h"
#include "hosts/acrobat/program.h"
#include "hosts/late_bound.h"

namespace foliant::hosts::acrobat {

/// "AcroExch.PDBookmark": a bookmark of a document. Members:
///
///     GetByTitle(document, title)    whether the document has such a bookmark, which this one is from now on;
///                                    of several, the one that the menu has just made, else the first
///     Perform(viewer)                brings what it leads to into view; False when that is no page of the
///                                    document in that window
///     SetTitle(title)                True; False when it is no bookmark
class PdBookmark : public LateBound {
  public:
    PdBookmark();

  private:
    bool find(const automation::Value& document, const std::string& title);
    bool perform(const automation::Value& viewer) const;
    bool rename(const std::string& title);

    DocumentPtr document_;
    std::optional<QPDFObjectHandle> bookmark_;  ///< of that document
};

/// The menu item "NewBookmark": a bookmark "Untitled" that leads to what the window in front shows, behind
/// those that there are. False when no window is open.
bool add_bookmark_for_view(Program& program);

}  // namespace foliant::hosts::acrobat
