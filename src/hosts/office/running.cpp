#include "hosts/office/running.h"

#include <algorithm>
#include <utility>

namespace foliant::hosts::office {

namespace {

constexpr std::int32_t not_running = 462;

bool is_open(const std::weak_ptr<OfficeDocument>& document) {
    const auto held = document.lock();
    return held && held->is_open();
}

}  // namespace

Machine& Running::machine() const {
    require_running();
    return machine_;
}

const std::string& Running::active_printer() const {
    require_running();
    return active_printer_;
}

void Running::require_running() const {
    if (has_quit_)
        throw application_.error(not_running, std::string(application_.short_name()) + " has been quit.");
}

void Running::require_printer(const std::string& name) const {
    require_running();
    if (!machine_.has_printer(name))
        throw application_.error(application_.command_failed,
                                 "There is no printer \"" + name +
                                     "\". Give the name of the PDF printer, or of a queue that lpstat -e "
                                     "lists.");
}

void Running::choose_printer(const std::string& name) {
    require_printer(name);
    active_printer_ = name;
}

void Running::add(const std::shared_ptr<OfficeDocument>& document) {
    require_running();
    documents_.push_back(document);
}

std::int32_t Running::open_documents() const {
    require_running();
    return static_cast<std::int32_t>(std::ranges::count_if(documents_, is_open));
}

void Running::quit() {
    if (std::exchange(has_quit_, true)) return;
    for (const auto& document : documents_)
        if (is_open(document)) document.lock()->close();
}

}  // namespace foliant::hosts::office
