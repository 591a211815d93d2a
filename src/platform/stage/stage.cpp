#include "platform/stage/stage.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "platform/stage/stage_object.h"
#include "platform/stage/stage_ports.h"

namespace foliant::platform::stage {

using automation::Error;
using automation::Value;

namespace {

constexpr long most_actions = 20000;

[[noreturn]] void refuse_to_go_on(const std::string& line, long actions) {
    const std::string reason = "the stage saw too many actions, the last: " + line;
    if (actions > most_actions + 100) {
        // What waits passes over errors, so that only this ends it.
        std::fprintf(stderr, "%s\n", reason.c_str());
        std::abort();
    }
    throw std::logic_error(reason);
}

}  // namespace

Stage::Stage() : ports_(std::make_unique<Ports>(*this)) {}
Stage::~Stage() = default;

Platform Stage::platform() {
    return {ports_->registry, ports_->files, ports_->clock,   ports_->windows,
            ports_->programs, ports_->shell, ports_->servers, ports_->printers};
}

std::string Stage::journal() const {
    std::string text;
    for (const std::string& line : lines_)
        text += line + "\n";
    return text;
}

void Stage::clear_journal() {
    lines_.clear();
    actions_ = 0;
}

void Stage::when(const std::string& class_and_member, Behaviour behaviour) {
    behaviours_[class_and_member] = std::move(behaviour);
}

void Stage::answer(const std::string& class_and_member, Value value) {
    when(class_and_member,
         [value = std::move(value)](StageObject&, const automation::Arguments&) { return value; });
}

void Stage::answer_object(const std::string& class_and_member, const std::string& name) {
    when(class_and_member,
         [name](StageObject& self, const automation::Arguments&) { return self.stage().make_object(name); });
}

void Stage::when_program_starts(std::function<void(const std::string&)> listener) {
    program_listeners_.push_back(std::move(listener));
}

void Stage::call_class(const std::string& class_name, const std::string& name) {
    class_names_[class_name] = name;
}

automation::ObjectPtr Stage::make_object(const std::string& name) {
    return std::make_shared<StageObject>(*this, name, true);
}

std::string Stage::name_of_class(const std::string& class_name) const {
    const auto named = class_names_.find(class_name);
    return named == class_names_.end() ? class_name : named->second;
}

void Stage::set_registry_text(const std::string& key, const std::string& name, const std::string& text) {
    registry[key][name] = {reg_string, text + '\0'};
}

void Stage::put_file(const std::string& path) {
    StagedFile file;
    file.appears_at = now;
    files[path] = std::move(file);
}

void Stage::fail_action(long k, Error error) {
    failing_action_ = k;
    failure_ = std::move(error);
}

void Stage::fail_actions_from(long k, Error error) {
    failing_from_ = k;
    later_failure_ = std::move(error);
}

const Error* Stage::failure_of_this_action() const noexcept {
    if (actions_ == failing_action_) return &failure_;
    return failing_from_ > 0 && actions_ >= failing_from_ ? &later_failure_ : nullptr;
}

void Stage::note(const std::string& line) {
    lines_.push_back(line);
    if (on_line) on_line(line);
}

bool Stage::act_or_refuse(const std::string& line) {
    if (++actions_ > most_actions) refuse_to_go_on(line, actions_);
    const bool fails = failure_of_this_action() != nullptr;
    note(fails ? line + " -> fails" : line);
    return fails;
}

void Stage::act(const std::string& line) {
    if (act_or_refuse(line)) throw *failure_of_this_action();
}

}  // namespace foliant::platform::stage
