#include "hosts/acrobat/av_document.h"

#include <utility>

#include "automation/coerce.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/find_text.h"
#include "hosts/acrobat/open_file.h"
#include "hosts/acrobat/pd_document.h"
#include "hosts/acrobat/print/print_pages.h"

namespace foliant::hosts::acrobat {

using automation::RuntimeError;
using automation::to_text;

AvDocument::AvDocument(ProgramPtr program, ViewPtr view)
    : LateBound(application_name), program_(std::move(program)), view_(std::move(view)) {
    add_method("Open", {"szFullPath", "szTempTitle"},
               [this](const Bound& given) { return open(to_text(given[0])); });
    add_method("GetPDDoc", {}, [this](const Bound&) {
        return automation::ObjectPtr(std::make_shared<PdDocument>(program_, shown()));
    });
    add_method("IsValid", {},
               [this](const Bound&) { return view_ != nullptr && view_->document != nullptr; });
    const Parameters print_parameters{"nFirstPage", "nLastPage", "nPSLevel", "bBinaryOk", "bShrinkToFit"};
    const Body print = [this](const Bound& given) { return print_pages(given); };
    add_method("PrintPages", print_parameters, print);  // nobody is there to change what its dialog shows
    add_method("PrintPagesSilent", print_parameters, print);
    add_method("FindText", {"szText", "bCaseSensitive", "bWholeWordsOnly", "bReset"},
               [this](const Bound& given) {
                   const bool from_start = automation::to_bool(given[3]);
                   shown();
                   return find_text(*view_,
                                    {.text = to_text(given[0]),
                                     .case_sensitive = automation::to_bool(given[1]),
                                     .whole_words = automation::to_bool(given[2])},
                                    from_start);
               });
    add_method("Close", {"bNoSave"}, [this](const Bound& given) {
        return close(!given[0].holds<automation::Missing>() && automation::to_bool(given[0]));
    });
}

const DocumentPtr& AvDocument::shown() const {
    if (view_ && view_->document) return view_->document;
    if (!view_ && program_->last_failure) throw automation::Error(*program_->last_failure);
    throw acrobat_error(RuntimeError::object_not_set, "No document is open in this window.");
}

bool AvDocument::open(const std::string& path) {
    view_.reset();
    try {
        view_ = program_->show(open_file(*program_, path));
    } catch (const automation::Error& failure) {
        // What is not installed is no matter of the file's.
        if (failure.is(RuntimeError::cannot_create_object)) throw;
        program_->last_failure = failure;
        program_->machine.tell_failure(failure.description());
    }
    return view_ != nullptr;
}

bool AvDocument::print_pages(const Bound& given) {
    const bool shrinks = !given[4].holds<automation::Missing>() && automation::to_bool(given[4]);
    if (shrinks)
        throw acrobat_error(RuntimeError::action_not_supported,
                            "Pages are printed in their own size. Give False for bShrinkToFit.");
    print::print_pages(*shown(), automation::to_int32(given[0]), automation::to_int32(given[1]));
    return true;
}

bool AvDocument::close(bool without_saving) {
    if (!view_ || !view_->document) return false;
    if (!without_saving && view_->document->is_changed())
        throw acrobat_error(RuntimeError::action_not_supported,
                            "What was changed in " + view_->document->name() +
                                " is not saved. Save the document, or close it with True.");
    program_->close(view_);
    return true;
}

}  // namespace foliant::hosts::acrobat
