#include "cli/output_check.h"

#include <algorithm>
#include <filesystem>

#include "cli/file_kind.h"
#include "cli/named_files.h"
#include "cli/pdf_facts.h"

namespace foliant::cli {

namespace fs = std::filesystem;

namespace {

/// What is wrong with a finished PDF, "" when nothing is.
std::string fault_of(const PdfFacts& facts, bool protection_wanted) {
    if (!facts.complete) return "it came out incomplete";
    if (facts.pages && *facts.pages <= 0) return "it came out without pages";
    if (protection_wanted && !facts.encrypted) return "it came out without the protection that was asked for";
    return {};
}

}  // namespace

void check_output(const Request& request, Outcome& outcome) {
    const auto output = output_of(*request.member, outcome.arguments);
    if (!output || outcome.error) return;
    const FileKind wanted = kind_written(*output->parameter);
    std::string fault;
    std::optional<long> pages;
    if (wanted == FileKind::pdf) {
        const PdfFacts facts = pdf_facts(output->path);
        fault = fault_of(facts, wants_protection(request));
        pages = facts.pages;
    } else if (wanted == FileKind::postscript && file_kind(output->path) != wanted) {
        fault = "it came out as no PostScript";
    }
    std::error_code ignored;
    if (!fault.empty()) {
        fs::remove(output->path, ignored);
        return fail_unnoticed(
            outcome, host_error("Cannot keep " + output->path + ": " + fault + ", and was removed."));
    }
    if (!pages) pages = pages_announced(outcome);
    outcome.made = {output->path, static_cast<std::int64_t>(fs::file_size(output->path, ignored)), pages};
}

}  // namespace foliant::cli
