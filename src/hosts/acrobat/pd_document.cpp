#include "hosts/acrobat/pd_document.h"

#include <iterator>
#include <string>
#include <utility>

#include "automation/coerce.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/open_file.h"
#include "hosts/acrobat/owner_rights.h"
#include "hosts/acrobat/page.h"
#include "hosts/acrobat/save.h"
#include "hosts/acrobat/structure/information.h"
#include "hosts/acrobat/structure/signatures.h"
#include "hosts/acrobat/structure/unreadable.h"
#include "hosts/acrobat/text_selection.h"

namespace foliant::hosts::acrobat {

using automation::Error;
using automation::RuntimeError;
using automation::to_int32;
using automation::to_text;

namespace {

/// Acrobat says no more than False.
bool refuses_pages(Document& source, Document& target) {
    const bool is_given = may(source, structure::Right::give_pages);
    if (is_given && may(target, structure::Right::gain_pages)) return false;
    const std::string what = is_given ? "Pages cannot be inserted into " + target.name()
                                      : "The pages of " + source.path() + " cannot be inserted";
    source.machine().tell_failure(what + ": " + owner_only);
    return true;
}

}  // namespace

PdDocument::PdDocument(ProgramPtr program, DocumentPtr document)
    : LateBound(application_name), program_(std::move(program)), document_(std::move(document)) {
    add_method("Open", {"szFullPath"}, [this](const Bound& given) { return open(to_text(given[0])); });
    add_method("Create", {}, [this](const Bound&) { return create(); });
    add_method("Close", {}, [this](const Bound&) { return close(); });
    add_method("GetNumPages", {}, [this](const Bound&) { return page_count(); });
    add_method("AcquirePage", {"nPage"},
               [this](const Bound& given) { return make_page(opened(), to_int32(given[0])); });
    add_method("CreateTextSelect", {"nPage", "iAcroRect"},
               [this](const Bound& given) { return select_text(opened(), to_int32(given[0]), given[1]); });
    add_method("InsertPages",
               {"nInsertPageAfter", "iPDDocSource", "nStartPage", "nNumPages", "bInsertBookmarks"},
               [this](const Bound& given) { return insert_pages(given); });
    add_method("SetInfo", {"szInfoKey", "szBuffer"},
               [this](const Bound& given) { return set_information(given); });
    add_method("GetInfo", {"szInfoKey"}, [this](const Bound& given) {
        return structure::information(opened().pdf(), to_text(given[0]));
    });
    add_method("SetFlags", {"nFlags"}, [this](const Bound&) {
        opened();
        return std::int32_t{0};
    });
    add_method("Save", {"nType", "szFullPath"}, [this](const Bound& given) {
        save(opened(), automation::to_int16(given[0]), to_text(given[1]));
        return true;
    });
    add_method("OpenAVDoc", {"szTitle"}, [this](const Bound&) {
        opened();
        return automation::ObjectPtr(std::make_shared<AvDocument>(program_, program_->show(document_)));
    });
}

Document& PdDocument::opened() const {
    return *shared();
}

const DocumentPtr& PdDocument::shared() const {
    if (document_) return document_;
    if (failure_) throw Error(*failure_);
    throw acrobat_error(RuntimeError::object_not_set, "No document is open.");
}

bool PdDocument::open(const std::string& path) {
    document_.reset();
    failure_.reset();
    try {
        document_ = program_->shown_document(path);
        if (!document_) document_ = Document::open(program_->machine, path, "");
    } catch (const structure::WrongPassword&) {
        failure_ = password_needed(path);
    } catch (const Error& failure) {
        // What is not installed is no matter of the file's.
        if (failure.is(RuntimeError::cannot_create_object)) throw;
        failure_ = failure;
    }
    return document_ != nullptr;
}

bool PdDocument::insert_pages(const Bound& given) {
    Document& target = opened();
    const auto* const object = given[1].if_holds<automation::ObjectPtr>();
    const auto* const source = object == nullptr ? nullptr : dynamic_cast<const PdDocument*>(object->get());
    if (source == nullptr) throw Error(RuntimeError::type_mismatch);
    const std::int32_t after = to_int32(given[0]);
    const std::int32_t first = to_int32(given[2]);
    const std::int32_t count = to_int32(given[3]);
    const auto coming = with_file_named(source->opened(), [](auto& pdf) { return std::ssize(pdf.pages()); });
    const auto there = with_file_named(target, [](auto& pdf) { return std::ssize(pdf.pages()); });
    if (after < -1 || after >= there || first < 0 || count < 0 || first + std::int64_t{count} > coming)
        throw acrobat_error(RuntimeError::invalid_procedure_call,
                            "There are no such pages to insert, or to insert them after.");
    if (refuses_pages(source->opened(), target)) return false;
    for (Document* document : {&target, &source->opened()})
        document->tell_missing_pages();
    source->opened().show_progress("Inserting", -1);
    const bool with_bookmarks = automation::to_bool(given[4]);
    // What is damaged in the source shows while it is copied.
    with_file_named(source->opened(), [&](structure::Pdf& pdf) {
        target.pdf().insert_pages(pdf, static_cast<std::size_t>(after) + 1, static_cast<std::size_t>(first),
                                  static_cast<std::size_t>(count), with_bookmarks);
    });
    target.note_change();
    if (structure::is_certified(source->opened().pdf()))
        target.machine().tell_failure(source->opened().name() +
                                      " is certified, the copy of its pages is not.");
    return true;
}

bool PdDocument::set_information(const Bound& given) {
    structure::set_information(opened().pdf(), to_text(given[0]), to_text(given[1]));
    return true;
}

std::int32_t PdDocument::page_count() const {
    return with_file_named(opened(), [](structure::Pdf& pdf) { return pdf.page_count(); });
}

bool PdDocument::create() {
    failure_.reset();
    document_ = Document::create(program_->machine);
    return true;
}

bool PdDocument::close() {
    return std::exchange(document_, nullptr) != nullptr;
}

}  // namespace foliant::hosts::acrobat
