#include "hosts/acrobat/save.h"

#include <filesystem>
#include <memory>
#include <string>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/structure/append_changes.h"
#include "hosts/acrobat/structure/information.h"
#include "hosts/acrobat/structure/signatures.h"
#include "hosts/acrobat/structure/write_pdf.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::acrobat {

namespace {

constexpr std::int16_t incremental = 0;
constexpr std::int16_t full = 1;
constexpr std::int16_t linearised = 4;

std::string what_is_allowed(structure::Changes changes) {
    switch (changes) {
        case structure::Changes::none:
            return "it allows no changes";
        case structure::Changes::forms:
            return "it allows only that forms are filled in and signed";
        case structure::Changes::comments:
            return "it allows only comments, and that forms are filled in and signed";
    }
    return {};
}

/// What became of the signatures in a file to which changes were appended; "" for nothing.
std::string after_appending(const structure::Signatures& signatures, const std::string& name) {
    if (!signatures.seal) return {};
    const structure::Seal& seal = *signatures.seal;
    std::string told = (seal.is_certification ? "The certification of " : "A signature in ") + name +
                       " does not hold any more: " + what_is_allowed(seal.allowed) + ".";
    if (seal.size > 0)
        told += " What was signed are the first " + std::to_string(seal.size) + " bytes of the file.";
    return told;
}

/// The same for one that was written anew, and for one that was made of the `original`.
std::string after_writing(const structure::Signatures& signatures, const std::string& name,
                          const std::string& original) {
    if (!signatures.exist) return {};
    const bool is_certified = signatures.seal && signatures.seal->is_certification;
    if (!original.empty())
        return is_certified ? name + " is not certified, as " + original +
                                  " is: a certification holds for the file that it was given to."
                            : "The signatures in " + name + " do not hold: they are those of " + original +
                                  ", of which it was made.";
    return (is_certified ? "The certification of " + name + " does" : "The signatures in " + name + " do") +
           " not hold any more: all of the file had to be written anew. " +
           (is_certified ? "Have it certified again." : "Sign it again.");
}

}  // namespace

void save(Document& document, std::int16_t flags, const std::string& path) {
    const bool is_in_place = path == document.path();
    if (flags == incremental && is_in_place && !document.is_changed()) return;
    const std::string name = std::filesystem::path(path).filename().string();
    std::string told;
    structure::Signatures signatures;
    try {
        const std::unique_ptr<OutputFile> output = document.machine().make_output(path);
        with_file_named(document, [&](structure::Pdf& pdf) {
            // A document that was never a file has only what others signed elsewhere.
            if (!document.path().empty()) signatures = structure::signatures_in(pdf);
            structure::note_writing(pdf);
            structure::drop_extended_rights(pdf);
            if (flags == incremental && structure::append_changes(pdf, *output)) {
                told = after_appending(signatures, name);
                return;
            }
            structure::drop_permissions(pdf);
            const auto tell = [&](int percent) { document.show_progress("Saving", percent); };
            structure::write_pdf(pdf, {.is_linearised = (flags & linearised) != 0, .on_progress = tell},
                                 *output);
            told = after_writing(signatures, name, is_in_place ? "" : document.name());
        });
        output->commit();
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(application_name, failure);
    }
    if (!told.empty()) document.machine().tell_failure(told);
    if (signatures.extend_rights && is_in_place)
        document.machine().tell_failure(
            "The rights that " + name +
            " gave to users of Adobe Reader are gone: they hold for the unchanged "
            "file only.");
    document.note_saved(path);
}

bool save_active_document(Program& program) {
    const ViewPtr view = program.active_view();
    if (!view) throw acrobat_error(automation::RuntimeError::object_not_set, "There is no document to save.");
    save(*view->document, full, view->document->path());
    return true;
}

}  // namespace foliant::hosts::acrobat
