#include "hosts/acrobat/pd_bookmark.h"

#include "automation/coerce.h"
#include "automation/error.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/outline/bookmarks.h"
#include "hosts/acrobat/outline/destinations.h"
#include "hosts/acrobat/owner_rights.h"
#include "hosts/acrobat/pd_document.h"
#include "hosts/acrobat/structure/unreadable.h"

namespace foliant::hosts::acrobat {

using automation::to_text;
using automation::Value;

namespace {

const PdDocument& document_in(const Value& value) {
    const auto* object = value.if_holds<automation::ObjectPtr>();
    const auto* document = object != nullptr ? dynamic_cast<const PdDocument*>(object->get()) : nullptr;
    if (document == nullptr) throw automation::Error(automation::RuntimeError::type_mismatch);
    return *document;
}

const AvDocument& window_in(const Value& value) {
    const auto* object = value.if_holds<automation::ObjectPtr>();
    const auto* window = object != nullptr ? dynamic_cast<const AvDocument*>(object->get()) : nullptr;
    if (window == nullptr) throw automation::Error(automation::RuntimeError::type_mismatch);
    return *window;
}

/// What the window shows: the place that was found, else the page in view.
outline::Target target_of(const View& view, structure::Pdf& pdf) {
    const auto page = static_cast<std::size_t>(view.page);
    if (page >= pdf.pages().size()) throw structure::Unreadable("it has no page for a bookmark to lead to");
    outline::Target target{.page = pdf.pages()[page].object, .left = std::nullopt, .top = std::nullopt};
    if (view.found) {
        target.left = view.found->places.front().left;
        target.top = view.found->places.front().top;
    }
    return target;
}

}  // namespace

PdBookmark::PdBookmark() : LateBound(application_name) {
    add_method("GetByTitle", {"iAcroPDDoc", "szTitle"},
               [this](const Bound& given) { return find(given[0], to_text(given[1])); });
    add_method("Perform", {"iAcroAVDoc"}, [this](const Bound& given) { return perform(given[0]); });
    add_method("SetTitle", {"szNewTitle"}, [this](const Bound& given) { return rename(to_text(given[0])); });
}

bool PdBookmark::find(const Value& document, const std::string& title) {
    bookmark_.reset();
    document_ = document_in(document).shared();
    bookmark_ = with_file_named(*document_, [&](structure::Pdf& pdf) {
        auto& newest = document_->newest_bookmark();
        if (newest && outline::title_of(*newest) == title) return newest;
        return outline::find_bookmark(pdf.qpdf(), title);
    });
    return bookmark_.has_value();
}

bool PdBookmark::perform(const Value& viewer) const {
    if (!bookmark_) return false;
    const AvDocument& window = window_in(viewer);
    const auto page = with_file_named(
        *document_, [&](structure::Pdf& pdf) { return outline::page_behind(pdf, *bookmark_); });
    if (!page || window.shown() != document_) return false;
    window.program()->go_to(window.view(), *page);
    return true;
}

bool PdBookmark::rename(const std::string& title) {
    if (!bookmark_) return false;
    outline::set_title(*bookmark_, title);
    document_->note_addition();
    return true;
}

bool add_bookmark_for_view(Program& program) {
    const ViewPtr view = program.active_view();
    if (!view || !view->document) return false;
    Document& document = *view->document;
    require_right(document, structure::Right::mark, "may get no bookmarks");
    with_file_named(document, [&](structure::Pdf& pdf) {
        document.newest_bookmark() = outline::add_bookmark(pdf.qpdf(), "Untitled", target_of(*view, pdf));
    });
    document.note_addition();
    return true;
}

}  // namespace foliant::hosts::acrobat
