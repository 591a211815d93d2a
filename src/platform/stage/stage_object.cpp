#include "platform/stage/stage_object.h"

#include <algorithm>
#include <utility>

#include "automation/describe.h"

namespace foliant::platform::stage {

using automation::Access;
using automation::Arguments;
using automation::describe;
using automation::Value;

class StageObject::Listening : public automation::Subscription {
  public:
    Listening(std::shared_ptr<StageObject> object, automation::EventSink& sink)
        : object_(std::move(object)), sink_(sink) {
        object_->sinks_.push_back(&sink_);
    }
    ~Listening() override {
        std::erase(object_->sinks_, &sink_);
        object_->stage_.note("stop listening to " + object_->name_);
    }

  private:
    std::shared_ptr<StageObject> object_;
    automation::EventSink& sink_;
};

class StageObject::Elements : public automation::Enumeration {
  public:
    Elements(std::shared_ptr<StageObject> collection, std::vector<Value> elements)
        : collection_(std::move(collection)), elements_(std::move(elements)) {}

    std::optional<Value> next() override {
        Stage& stage = collection_->stage_;
        stage.act("next of " + collection_->name_);
        if (given_ == elements_.size()) {
            stage.extend_last_line(" -> none");
            return std::nullopt;
        }
        Value& element = elements_[given_++];
        const auto* object = element.if_holds<automation::ObjectPtr>();
        const auto* staged = object == nullptr ? nullptr : dynamic_cast<StageObject*>(object->get());
        stage.extend_last_line(" -> " + (staged == nullptr ? describe(element) : staged->name_));
        return std::exchange(element, Value());
    }

  private:
    std::shared_ptr<StageObject> collection_;
    std::vector<Value> elements_;
    std::size_t given_ = 0;
};

StageObject::StageObject(Stage& stage, std::string name, bool owned)
    : stage_(stage), name_(std::move(name)), owned_(owned) {}

StageObject::~StageObject() {
    if (owned_) stage_.note("release " + name_);
}

std::string StageObject::name_of(std::string_view member) const {
    return name_.substr(0, name_.find('.')) + "." + std::string(member);
}

Value StageObject::invoke(Access access, std::string_view member, const Arguments& arguments) {
    const std::string path = name_ + "." + std::string(member);
    const auto found = stage_.behaviours_.find(path);
    const auto behave = [&](const Value& otherwise) {
        return found == stage_.behaviours_.end() ? otherwise : found->second(*this, arguments);
    };
    switch (access) {
        case Access::set:
        case Access::set_reference:
            stage_.act((access == Access::set ? "" : "Set ") + path + " = " + describe(arguments));
            return behave(Value());
        case Access::call:
            stage_.act(path + "(" + describe(arguments) + ")");
            return behave(Value());
        case Access::get:
            break;
    }
    stage_.act(path + (arguments.empty() ? "" : "(" + describe(arguments) + ")"));
    const Value answer = found == stage_.behaviours_.end()
                             ? Value(std::make_shared<StageObject>(stage_, name_of(member), false))
                             : found->second(*this, arguments);
    if (!answer.holds<automation::ObjectPtr>()) stage_.extend_last_line(" -> " + describe(answer));
    return answer;
}

std::unique_ptr<automation::Subscription> StageObject::subscribe(automation::EventSink& sink) {
    stage_.act("listen to " + name_);
    return std::make_unique<Listening>(std::static_pointer_cast<StageObject>(shared_from_this()), sink);
}

std::unique_ptr<automation::Enumeration> StageObject::enumerate() {
    stage_.act("enumerate " + name_);
    const auto script = stage_.behaviours_.find(name_ + "._NewEnum");
    const Value answer = script == stage_.behaviours_.end() ? Value() : script->second(*this, {});
    const auto* array = answer.if_holds<automation::ArrayPtr>();
    return std::make_unique<Elements>(std::static_pointer_cast<StageObject>(shared_from_this()),
                                      array == nullptr ? std::vector<Value>() : (*array)->items);
}

void StageObject::notify(std::string_view event, const std::vector<Value>& arguments) {
    const auto listeners = sinks_;
    for (automation::EventSink* sink : listeners)
        sink->notify(event, arguments);
}

const Value* find_argument(const Arguments& arguments, std::string_view name, std::size_t position) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i].name.empty() ? i == position : arguments[i].name == name) return &arguments[i].value;
    }
    return nullptr;
}

}  // namespace foliant::platform::stage
