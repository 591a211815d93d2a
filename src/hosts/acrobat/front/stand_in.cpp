#include "hosts/acrobat/front/stand_in.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "automation/coerce.h"
#include "automation/text.h"
#include "hosts/acrobat/glance/page_count.h"
#include "hosts/mapped_file.h"
#include "hosts/write_failure.h"
#include "registered/classes.h"

namespace foliant::hosts::acrobat::front {

using automation::Access;
using automation::Argument;
using automation::Arguments;
using automation::equal_ignoring_case;
using automation::ObjectPtr;
using automation::to_int32;
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
    if (viewer_) {
        if (!equal_ignoring_case(member, "GetNumPages") || !arguments.empty()) return std::nullopt;
        return file_->pages;
    }
    const auto is = [&](std::string_view name) { return equal_ignoring_case(member, name); };
    if (is("Open")) return open(arguments);
    if (is("Create") && arguments.empty()) {
        own_ = OwnDocument::created();
        return true;
    }
    if (!own_.is_there()) return std::nullopt;
    if (is("GetNumPages") && arguments.empty()) return own_.page_count();
    if (is("InsertPages")) return insert_pages(arguments);
    if (is("Save")) return save(arguments);
    if (is("Close") && arguments.empty()) {
        own_ = {};
        return true;
    }
    return std::nullopt;
}

std::optional<Value> Document::open(const Arguments& arguments) {
    own_ = {};
    const auto* const path = arguments.size() == 1 ? arguments[0].value.if_holds<std::string>() : nullptr;
    // What a window shows is the document that is opened, by the engine's account of windows.
    if (path == nullptr || !arguments[0].name.empty() || front()->shows_any()) return std::nullopt;
    posix::FileDescriptor file;
    try {
        file = front()->machine().open_document(*path, DocumentAccess::open_file).descriptor;
        own_ = OwnDocument::opened(*path, file);
        return true;
    } catch (const glance::Doubt&) {
        front()->wake().take_over(*path, std::move(file));
    } catch (
        const std::
            system_error&) {  // NOLINT(bugprone-empty-catch): the engine meets the same, and has the words for it
    }
    return std::nullopt;
}

/// All pages of another document, behind the last one of this.
std::optional<Value> Document::insert_pages(const Arguments& arguments) {
    if (arguments.size() != 5 ||
        std::ranges::any_of(arguments, [](const Argument& one) { return !one.name.empty(); }))
        return std::nullopt;
    const auto* const object = arguments[1].value.if_holds<ObjectPtr>();
    auto* const source = object == nullptr ? nullptr : dynamic_cast<Document*>(object->get());
    if (source == nullptr || source->viewer_ || source == this) return std::nullopt;
    const std::int32_t count = to_int32(arguments[3].value);
    if (to_int32(arguments[0].value) != own_.page_count() - 1 || to_int32(arguments[2].value) != 0 ||
        count == 0)
        return std::nullopt;
    try {
        if (!own_.append(source->own_, count, automation::to_bool(arguments[4].value))) return std::nullopt;
    } catch (const glance::Doubt&) {
        return std::nullopt;
    }
    front()->show_progress("Inserting", source->own_.path(), -1);
    return true;
}

std::optional<Value> Document::save(const Arguments& arguments) {
    constexpr std::int16_t full = 1;
    constexpr std::int16_t linearised = 4;
    if (arguments.size() != 2 || !own_.is_changed()) return std::nullopt;
    const std::int16_t flags = automation::to_int16(arguments[0].value);
    if (flags != full && flags != (full | linearised)) return std::nullopt;
    const std::string path = automation::to_text(arguments[1].value);
    try {
        const std::unique_ptr<OutputFile> output = front()->machine().make_output(path);
        own_.write(*output, flags == full ? Form::plain : Form::linearised);
        output->commit();
    } catch (const glance::Doubt&) {
        return std::nullopt;
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure("Adobe Acrobat", failure);
    }
    own_.note_saved(path);
    return true;
}

ObjectPtr Document::make_real(const Engine& engine) {
    if (viewer_ && viewer_->file() == file_)
        return *viewer_->real()->invoke(Access::call, "GetPDDoc", {}).if_holds<ObjectPtr>();
    const ObjectPtr document = StandIn::make_real(engine);
    if (file_) open_in(engine, document, *file_, {file_->path});
    if (own_.is_there()) {
        if (posix::FileDescriptor file = own_.hand_over()) {
            engine.take_over(own_.path(), std::move(file));
            document->invoke(Access::call, "Open", {own_.path()});
        } else {
            document->invoke(Access::call, "Create", {});
        }
        own_ = {};
    }
    return document;
}

}  // namespace foliant::hosts::acrobat::front
