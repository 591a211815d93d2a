#include "hosts/acrobat/front/front.h"

#include <filesystem>

#include "automation/text.h"
#include "hosts/acrobat/front/stand_in.h"
#include "registered/classes.h"

namespace foliant::hosts::acrobat::front {

automation::ObjectPtr Front::create(std::string_view class_name) {
    const auto is = [&](std::string_view name) { return automation::equal_ignoring_case(class_name, name); };
    if (!is_awake()) {
        const std::shared_ptr<Front> self = shared_from_this();
        if (is(registered::acrobat)) return keep(std::make_shared<Application>(self));
        if (is(registered::acrobat_viewer)) return keep(std::make_shared<Viewer>(self));
        if (is(registered::acrobat_document)) return keep(std::make_shared<Document>(self));
    }
    const Engine& engine = wake();
    // It is handed documents and windows, which are the engine's own only behind those that stand for them.
    if (is(registered::acrobat_bookmark))
        return std::make_shared<StandIn>(shared_from_this(), registered::acrobat_bookmark);
    return engine.create(class_name, machine_);
}

const Engine& Front::wake() {
    if (engine_ != nullptr) return *engine_;
    engine_ = &load_();
    // Windows come up in the order in which they were opened.
    for (const auto& shown : shown_)
        if (const auto viewer = shown.lock(); viewer && viewer->file()) viewer->real();
    for (const auto& kept : objects_)
        if (const auto object = kept.lock()) object->real();
    return *engine_;
}

void Front::show_progress(std::string_view doing, const std::string& path, int percent) {
    constexpr std::chrono::milliseconds pause{200};
    constexpr std::size_t longest_name = 50;  // that a line of a terminal has room for
    const auto now = std::chrono::steady_clock::now();
    if (now - last_progress_ < pause) return;
    last_progress_ = now;
    const std::string name = std::filesystem::path(path).filename().string();
    machine_.show_progress(std::string(doing) + (name.size() > longest_name ? "" : " " + name), percent);
}

void Front::close_all() noexcept {
    for (const auto& shown : shown_)
        if (const auto viewer = shown.lock()) viewer->close();
    shown_.clear();
}

}  // namespace foliant::hosts::acrobat::front
