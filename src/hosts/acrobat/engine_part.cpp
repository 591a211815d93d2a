#include <malloc.h>
#include <qpdf/QPDF.hh>
#include <string>

#include "automation/text.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/application.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/document.h"
#include "hosts/acrobat/front/engine.h"
#include "hosts/acrobat/pd_bookmark.h"
#include "hosts/acrobat/pd_document.h"
#include "hosts/acrobat/rectangle.h"
#include "registered/classes.h"

namespace foliant::hosts::acrobat {
namespace {

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    const auto is = [&](std::string_view name) { return automation::equal_ignoring_case(class_name, name); };
    ProgramPtr program = Program::running_on(machine);
    if (is(registered::acrobat)) return make_application(std::move(program));
    if (is(registered::acrobat_viewer)) return std::make_shared<AvDocument>(std::move(program));
    if (is(registered::acrobat_rectangle)) return std::make_shared<AcrobatRectangle>();
    if (is(registered::acrobat_bookmark)) return std::make_shared<PdBookmark>();
    if (is(registered::acrobat_document)) return std::make_shared<PdDocument>(std::move(program));
    throw acrobat_error(automation::RuntimeError::cannot_create_object,
                        "qpdf stands in for no class " + std::string(class_name) + ".");
}

/// qpdf has whole streams in memory when it writes them, one copy after the other. What the C library gives back to the
/// kernel meanwhile it gets again page by page, each of them to be cleared first: a third of the time that a photograph takes.
/// At its most a process has 8 MB more then.
void keep_freed_memory() noexcept {
    constexpr int largest_kept = 8 << 20;  // bytes; what is larger goes back at once
    constexpr int most_kept = 64 << 20;    // bytes
    ::mallopt(M_MMAP_THRESHOLD, largest_kept);
    ::mallopt(M_TRIM_THRESHOLD, most_kept);
}

const front::Engine& engine() {
    keep_freed_memory();
    static constexpr front::Engine is = {[] { return QPDF::QPDFVersion(); }, create, Document::take_over};
    return is;
}

}  // namespace
}  // namespace foliant::hosts::acrobat

extern "C" __attribute__((visibility("default"))) const auto foliant_part = &foliant::hosts::acrobat::engine;
