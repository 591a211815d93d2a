#include "hosts/acrobat/program.h"

#include <algorithm>
#include <utility>

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
    views.push_back(std::make_shared<View>(View{std::move(document)}));
    return views.back();
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
}

void Program::close_all() noexcept {
    while (!views.empty())
        close(ViewPtr(views.back()));
}

}  // namespace foliant::hosts::acrobat
