#pragma once

#include <optional>

#include "hosts/acrobat/program.h"
#include "hosts/late_bound.h"

namespace foliant::hosts::acrobat {

/// "AcroExch.AVDoc": a window that shows a document. Members:
///
///     Open(path, title)    True when it shows the file; otherwise False, and the next member that needs the
///                          document raises why. A password is asked for in the Password dialog.
///     GetPDDoc()           what it shows
///     IsValid()            whether it shows anything
///     FindText(text, case counts, whole words only, from the start)    whether it is found, and shown; see
///                          find_text.h
///     Close(no save)       True when it showed something. It takes True only: what was changed is saved by
///                          the document's Save.
class AvDocument : public LateBound {
  public:
    explicit AvDocument(ProgramPtr program, ViewPtr view = nullptr);

    /// The document that it shows. Raises why there is none.
    const DocumentPtr& shown() const;
    const ViewPtr& view() const noexcept { return view_; }
    const ProgramPtr& program() const noexcept { return program_; }

  private:
    bool open(const std::string& path);
    bool print_pages(const Bound& given);
    bool close(bool without_saving);

    ProgramPtr program_;
    ViewPtr view_;  ///< null before anything is shown
};

}  // namespace foliant::hosts::acrobat
