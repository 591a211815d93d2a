#include "hosts/acrobat/program.h"

#include <algorithm>
#include <utility>

#include "hosts/viewer.h"

namespace foliant::hosts::acrobat {

ProgramPtr Program::running_on(Machine& machine) {
    static std::weak_ptr<Program> last;
    ProgramPtr program = last.lock();
    if (!program || &program->machine != &machine) {
        program = std::make_shared<Program>(machine);
        last = program;
    }
    return program;
}

ViewPtr Program::show(DocumentPtr document) {
    last_failure.reset();
    views.push_back(std::make_shared<View>(View{.document = std::move(document)}));
    tell_what_is_shown();
    return views.back();
}

void Program::show_handed_over() {
    const std::optional<HandedOver> document = machine.take_handed_over();
    if (!document) return;
    const ViewPtr view = show(Document::of_file(machine, document->pdf.get(), document->name));
    view->window = machine.open_window(viewer_caption(document->name), {});
}

ViewPtr Program::active_view() const {
    return views.empty() ? nullptr : views.back();
}

DocumentPtr Program::shown_document(const std::string& path) const {
    const auto found = std::ranges::find_if(
        views, [&](const ViewPtr& view) { return view->document && view->document->path() == path; });
    return found == views.end() ? nullptr : (*found)->document;
}

void Program::close(const ViewPtr& view) noexcept {
    std::erase(views, view);
    view->document.reset();
    try {
        if (view->window != 0) machine.close_window(std::exchange(view->window, 0));
        tell_what_is_shown();
    } catch (...) {  // NOLINT(bugprone-empty-catch): without anybody to tell nothing stays open either
    }
}

void Program::close_all() noexcept {
    while (!views.empty())
        close(ViewPtr(views.back()));
}

void Program::become_visible() {
    is_visible_ = true;
    tell_what_is_shown();
}

void Program::go_to(const ViewPtr& view, std::int32_t page) {
    view->page = page;
    view->found.reset();
    tell_what_is_shown();
}

void Program::read_aloud(const std::string& text) {
    speech_ = machine.private_folder() / "read-aloud.txt";
    const std::unique_ptr<OutputFile> file = machine.make_output(speech_);
    file->write(text);
    file->commit();
    tell_what_is_shown();
}

void Program::tell_what_is_shown() const {
    if (!is_visible_) return;
    const ViewPtr view = active_view();
    if (view == nullptr || view->document->path().empty()) return machine.leave_open(std::nullopt);
    machine.leave_open(LeftOpen{view->document->path(), view->page + 1, speech_});
}

}  // namespace foliant::hosts::acrobat
