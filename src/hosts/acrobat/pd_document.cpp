#include "hosts/acrobat/pd_document.h"

#include <utility>

#include "automation/coerce.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/open_file.h"
#include "hosts/acrobat/page.h"
#include "hosts/acrobat/structure/unreadable.h"
#include "hosts/acrobat/text_selection.h"

namespace foliant::hosts::acrobat {

using automation::Error;
using automation::RuntimeError;
using automation::to_text;
using automation::Value;

PdDocument::PdDocument(ProgramPtr program, DocumentPtr document)
    : LateBound(application_name), program_(std::move(program)), document_(std::move(document)) {
    add_method("Open", {"szFullPath"}, [this](const Bound& given) { return open(to_text(given[0])); });
    add_method("Create", {}, [this](const Bound&) { return create(); });
    add_method("Close", {}, [this](const Bound&) { return close(); });
    add_method("GetNumPages", {}, [this](const Bound&) { return page_count(); });
    add_method("AcquirePage", {"nPage"},
               [this](const Bound& given) { return make_page(opened(), automation::to_int32(given[0])); });
    add_method("CreateTextSelect", {"nPage", "iAcroRect"}, [this](const Bound& given) {
        return select_text(opened(), automation::to_int32(given[0]), given[1]);
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
        failure_ = failure;
    }
    return document_ != nullptr;
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
