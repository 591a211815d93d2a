#include "hosts/acrobat/save.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <memory>
#include <qpdf/QPDFAcroFormDocumentHelper.hh>
#include <vector>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/structure/append_changes.h"
#include "hosts/acrobat/structure/information.h"
#include "hosts/acrobat/structure/write_pdf.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::acrobat {

namespace {

constexpr std::int16_t incremental = 0;
constexpr std::int16_t full = 1;
constexpr std::int16_t linearised = 4;

/// Whether somebody has signed the file that it was read from.
bool is_signed(structure::Pdf& pdf) {
    constexpr long long signatures_exist = 1;
    QPDFObjectHandle form = pdf.qpdf().getRoot().getKey("/AcroForm");
    if (!pdf.file() || !form.isDictionary()) return false;
    QPDFObjectHandle flags = form.getKey("/SigFlags");
    if (!flags.isInteger() || (flags.getIntValue() & signatures_exist) == 0) return false;
    try {
        std::vector<QPDFFormFieldObjectHelper> fields =
            QPDFAcroFormDocumentHelper(pdf.qpdf()).getFormFields();
        return std::ranges::any_of(fields, [](QPDFFormFieldObjectHelper& field) {
            return field.getFieldType() == "/Sig" && field.getValue().isDictionary();
        });
    } catch (const std::exception&) {
        return true;  // damaged fields: the document says so
    }
}

}  // namespace

void save(Document& document, std::int16_t flags, const std::string& path) {
    bool breaks_signatures = false;
    try {
        const std::unique_ptr<OutputFile> output = document.machine().make_output(path);
        with_file_named(document, [&](structure::Pdf& pdf) {
            structure::note_writing(pdf);
            if (flags == incremental && structure::append_changes(pdf, *output)) return;
            // A document that was never a file has only what others signed elsewhere.
            breaks_signatures = !document.path().empty() && is_signed(pdf);
            const auto tell = [&](int percent) { document.show_progress("Saving", percent); };
            structure::write_pdf(pdf, {.is_linearised = (flags & linearised) != 0, .on_progress = tell},
                                 *output);
        });
        output->commit();
        if (breaks_signatures)
            document.machine().tell_failure(
                "The signatures in " + document.name() +
                " do not hold any more: all of the file had to be written anew. Sign it again.");
        document.note_saved(path);
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(application_name, failure);
    }
}

bool save_active_document(Program& program) {
    const ViewPtr view = program.active_view();
    if (!view) throw acrobat_error(automation::RuntimeError::object_not_set, "There is no document to save.");
    save(*view->document, full, view->document->path());
    return true;
}

}  // namespace foliant::hosts::acrobat
