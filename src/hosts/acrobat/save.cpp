#include "hosts/acrobat/save.h"

#include <filesystem>
#include <memory>

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

}  // namespace

void save(Document& document, std::int16_t flags, const std::string& path) {
    try {
        const std::unique_ptr<OutputFile> output = document.machine().make_output(path);
        with_file_named(document, [&](structure::Pdf& pdf) {
            structure::note_writing(pdf);
            if (flags == incremental && structure::append_changes(pdf, *output)) return;
            const auto tell = [&](int percent) { document.show_progress("Saving", percent); };
            structure::write_pdf(pdf, {.is_linearised = (flags & linearised) != 0, .on_progress = tell},
                                 *output);
        });
        output->commit();
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
