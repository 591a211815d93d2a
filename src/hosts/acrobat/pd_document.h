#pragma once

#include <optional>

#include "automation/object.h"
#include "hosts/acrobat/program.h"
#include "hosts/late_bound.h"

namespace foliant::hosts::acrobat {

/// "AcroExch.PDDoc": what is in a document. Members:
///
///     Open(path)           True when it is open; otherwise False, and the next member that needs the document
///                          raises why. A file that needs a password is not opened: nothing here asks for one.
///     Create()             a new document without pages
///     GetNumPages()        a 32-bit number
///     AcquirePage(page)    one page, from 0; see page.h
///     CreateTextSelect(page, rectangle)    its words; see text_selection.h
///     OpenAVDoc(title)     a window on it
///     AcquirePage(number)  a page, from 0; see page.h
///     InsertPages(after, source, first, count, bookmarks)
///                          inserts pages of another PDDoc behind page `after`, -1 for the beginning
///     SetInfo(key, text)   "Title", "Author" ...
///     GetInfo(key)         the same; "" for nothing
///     SetFlags(flags)      0; how a document behaves in a window is nothing to this Acrobat
///     Save(flags, path)    see save.h
///     Close()              True when it was open
///
/// A member that needs a document raises when there is none.
class PdDocument : public LateBound {
  public:
    explicit PdDocument(ProgramPtr program, DocumentPtr document = nullptr);

    /// The document that it holds. Raises why there is none.
    Document& opened() const;
    /// The same, for whoever keeps it.
    const DocumentPtr& shared() const;

    const ProgramPtr& program() const noexcept { return program_; }

  private:
    bool open(const std::string& path);
    bool create();
    bool insert_pages(const Bound& given);
    bool set_information(const Bound& given);
    std::int32_t page_count() const;
    bool close();

    ProgramPtr program_;
    DocumentPtr document_;
    std::optional<automation::Error> failure_;  ///< why the last Open opened nothing
};

}  // namespace foliant::hosts::acrobat
