#include "hosts/acrobat/front/stand_in.h"

#include <system_error>
#include <utility>

#include "automation/text.h"
#include "hosts/acrobat/glance/page_count.h"
#include "hosts/mapped_file.h"
#include "registered/classes.h"

namespace foliant::hosts::acrobat::front {

using automation::Access;
using automation::Argument;
using automation::Arguments;
using automation::equal_ignoring_case;
using automation::ObjectPtr;
using automation::Value;

namespace {

/// What goes to the engine are its own objects.
Arguments with_real_objects(Arguments arguments) {
    for (Argument& argument : arguments) {
        const auto* const object = argument.value.if_holds<ObjectPtr>();
        auto* const stand_in = object == nullptr ? nullptr : dynamic_cast<StandIn*>(object->get());
        if (stand_in != nullptr) argument.value = Value(stand_in->real());
    }
    return arguments;
}

/// Has the engine open a file that was handed out already.
void open_in(const Engine& engine, const ObjectPtr& object, CountedFile& file, Arguments arguments) {
    engine.take_over(file.path, std::move(file.descriptor));
    object->invoke(Access::call, "Open", arguments);
}

}  // namespace

Value StandIn::invoke(Access access, std::string_view member, const Arguments& arguments) {
    if (!front_->is_awake())
        if (auto result = at_once(member, arguments)) return *std::move(result);
    return real()->invoke(access, member, with_real_objects(arguments));
}

std::unique_ptr<automation::Subscription> StandIn::subscribe(automation::EventSink& sink) {
    return real()->subscribe(sink);
}

std::unique_ptr<automation::Enumeration> StandIn::enumerate() {
    return real()->enumerate();
}

const ObjectPtr& StandIn::real() {
    const Engine& engine = front_->wake();
    if (!real_) real_ = make_real(engine);
    return real_;
}

ObjectPtr StandIn::make_real(const Engine& engine) {
    return engine.create(class_name_, front_->machine());
}

Application::Application(std::shared_ptr<Front> front) : StandIn(std::move(front), registered::acrobat) {}

std::optional<Value> Application::at_once(std::string_view member, const Arguments& arguments) {
    if (!equal_ignoring_case(member, "Exit") || !arguments.empty()) return std::nullopt;
    front()->close_all();
    return true;
}

Viewer::Viewer(std::shared_ptr<Front> front) : StandIn(std::move(front), registered::acrobat_viewer) {}

std::optional<Value> Viewer::at_once(std::string_view member, const Arguments& arguments) {
    if (equal_ignoring_case(member, "Open")) return open(arguments);
    if (!file_) return std::nullopt;
    if (equal_ignoring_case(member, "GetPDDoc") && arguments.empty())
        return ObjectPtr(front()->keep(std::make_shared<Document>(front(), self())));
    if (equal_ignoring_case(member, "Close") && arguments.size() == 1 && arguments[0].value == Value(true)) {
        close();
        return true;
    }
    return std::nullopt;
}

std::optional<Value> Viewer::open(const Arguments& arguments) {
    if (was_opened_ || arguments.size() != 2) return std::nullopt;
    const auto* const path = arguments[0].value.if_holds<std::string>();
    if (path == nullptr || !arguments[0].name.empty()) return std::nullopt;
    was_opened_ = true;
    try {
        auto file = std::make_shared<CountedFile>();
        file->path = *path;
        file->descriptor = front()->machine().open_document(*path, DocumentAccess::open_file).descriptor;
        const auto pages = glance::page_count(MappedFile(file->descriptor.get()).bytes());
        if (!pages) {
            front()->wake().take_over(*path, std::move(file->descriptor));
            return std::nullopt;
        }
        file->pages = *pages;
        file_ = std::move(file);
    } catch (const std::system_error&) {
        return std::nullopt;  // the engine meets the same, and has the words for it
    }
    front()->note_shown(self());
    return true;
}

ObjectPtr Viewer::make_real(const Engine& engine) {
    const ObjectPtr viewer = StandIn::make_real(engine);
    if (file_) open_in(engine, viewer, *file_, {file_->path, ""});
    return viewer;
}

Document::Document(std::shared_ptr<Front> front, std::shared_ptr<Viewer> viewer)
    : StandIn(std::move(front), registered::acrobat_document),
      viewer_(std::move(viewer)),
      file_(viewer_ ? viewer_->file() : nullptr) {}

std::optional<Value> Document::at_once(std::string_view member, const Arguments& arguments) {
    if (!file_ || !equal_ignoring_case(member, "GetNumPages") || !arguments.empty()) return std::nullopt;
    return file_->pages;
}

ObjectPtr Document::make_real(const Engine& engine) {
    if (viewer_ && viewer_->file() == file_)
        return *viewer_->real()->invoke(Access::call, "GetPDDoc", {}).if_holds<ObjectPtr>();
    const ObjectPtr document = StandIn::make_real(engine);
    if (file_) open_in(engine, document, *file_, {file_->path});
    return document;
}

}  // namespace foliant::hosts::acrobat::front
