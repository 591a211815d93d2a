#include "hosts/office/powerpoint/powerpoint_application.h"

#include <utility>

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/engine/document_opener.h"
#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/start.h"
#include "hosts/office/powerpoint/powerpoint_error.h"
#include "hosts/office/powerpoint/presentation.h"
#include "hosts/office/powerpoint/presentation_kind.h"
#include "hosts/office/running.h"

namespace foliant::hosts::office {

using automation::ObjectPtr;
using automation::to_int32;
using automation::to_text;
using automation::Value;

namespace {

using RunningPtr = std::shared_ptr<Running>;
using PresentationPtr = std::shared_ptr<Presentation>;

constexpr std::int32_t horizontal = 1;
constexpr std::int32_t vertical = 2;
constexpr std::int32_t not_said = -1;

automation::Error out_of_range(const std::string& description) {
    return microsoft_powerpoint.error(microsoft_powerpoint.value_out_of_range, description);
}

void set_orientation(Presentation& presentation, std::int32_t orientation) {
    if (orientation != horizontal && orientation != vertical)
        throw out_of_range("Slides lie 1 (horizontally) or 2 (vertically), not " +
                           std::to_string(orientation) + ".");
    presentation.set_horizontal(orientation == horizontal);
}

ObjectPtr make_page_setup(const PresentationPtr& presentation) {
    auto setup = std::make_shared<LateBound>(microsoft_powerpoint.name);
    setup->add_property(
        "SlideOrientation", [presentation] { return presentation->is_horizontal() ? horizontal : vertical; },
        [presentation](const Value& value) { set_orientation(*presentation, to_int32(value)); });
    return setup;
}

ObjectPtr make_print_options(const RunningPtr& running) {
    auto options = std::make_shared<LateBound>(microsoft_powerpoint.name);
    options->add_property(
        "ActivePrinter", [running] { return running->active_printer(); },
        [running](const Value& value) { running->choose_printer(to_text(value)); });
    return options;
}

/// The slides from the one to the other, as a page range; "" for all.
std::string slide_range(const Presentation& presentation, const Value& first, const Value& last) {
    const auto given = [](const Value& slide) { return is_given(slide) ? to_int32(slide) : not_said; };
    const std::int32_t count = presentation.slide_count();
    const std::int32_t from = given(first) == not_said ? 1 : given(first);
    const std::int32_t to = given(last) == not_said ? count : given(last);
    const std::string slides = presentation.title() + " has slides 1 to " + std::to_string(count);
    for (const std::int32_t slide : {from, to})
        if (slide < 1 || slide > count)
            throw out_of_range(slides + ", and no slide " + std::to_string(slide) + ".");
    if (from > to)
        throw out_of_range(slides + ", printed from the first one on: not from " + std::to_string(from) +
                           " to " + std::to_string(to) + ".");
    return from == 1 && to == count ? std::string() : std::to_string(from) + "-" + std::to_string(to);
}

void print_out(const RunningPtr& running, const Presentation& presentation, const Bound& arguments) {
    enum Parameter : std::size_t { from, to, print_to_file, copies };
    if (is_given(arguments[copies]) && to_int32(arguments[copies]) != 1)
        throw out_of_range("One copy is printed at a time.");
    const PrintRequest request{
        .output = is_given(arguments[print_to_file]) ? to_text(arguments[print_to_file]) : std::string(),
        .pages = slide_range(presentation, arguments[from], arguments[to])};
    print(presentation, request, running->active_printer(), running->machine(), microsoft_powerpoint);
}

ObjectPtr make_presentation(const RunningPtr& running, const PresentationPtr& presentation) {
    auto object = std::make_shared<LateBound>(microsoft_powerpoint.name);
    object->add_property("PageSetup", [presentation] { return make_page_setup(presentation); });
    object->add_property("PrintOptions", [running] { return make_print_options(running); });
    object->add_method("PrintOut", {"From", "To", "PrintToFile", "Copies", "Collate"},
                       [running, presentation](const Bound& arguments) {
                           print_out(running, *presentation, arguments);
                           return Value();
                       });
    object->add_method("Close", {}, [presentation](const Bound&) {
        presentation->close();
        return Value();
    });
    return object;
}

ObjectPtr make_presentations(const RunningPtr& running) {
    auto presentations = std::make_shared<LateBound>(microsoft_powerpoint.name);
    presentations->add_property("Count", [running] { return running->open_documents(); });
    presentations->add_method(
        "Open", {"FileName", "ReadOnly", "Untitled", "WithWindow"}, [running](const Bound& arguments) {
            auto presentation = std::make_shared<Presentation>(open_in_office(
                running->machine(), to_text(arguments[0]), {}, microsoft_powerpoint, presentation_filter));
            running->add(presentation);
            return make_presentation(running, presentation);
        });
    return presentations;
}

}  // namespace

ObjectPtr make_powerpoint_application(Machine& machine) {
    require_office(microsoft_powerpoint);
    auto running = std::make_shared<Running>(machine, microsoft_powerpoint);
    auto application = std::make_shared<LateBound>(microsoft_powerpoint.name);
    for (const auto& [name, usual] : {std::pair("Visible", 0), std::pair("WindowState", 1)}) {
        const auto kept = std::make_shared<std::int32_t>(usual);
        application->add_property(
            name,
            [running, kept] {
                running->require_running();
                return *kept;
            },
            [running, kept](const Value& value) {
                running->require_running();
                *kept = to_int32(value);
            });
    }
    application->add_property("Presentations", [running] {
        running->require_running();
        return make_presentations(running);
    });
    application->add_method("Quit", {}, [running](const Bound&) {
        running->quit();
        return Value();
    });
    return application;
}

}  // namespace foliant::hosts::office
