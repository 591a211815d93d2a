#include "automation/value.h"

#include "automation/error.h"
#include "automation/object.h"

namespace foliant::automation {

Value::Value(Array array) : storage_(std::make_shared<const Array>(std::move(array))) {}

Object& Value::object() const {
    const auto* object = if_holds<ObjectPtr>();
    if (object == nullptr) throw Error(RuntimeError::object_required);
    if (*object == nullptr) throw Error(RuntimeError::object_not_set);
    return **object;
}

Value Value::get(std::string_view member, const Arguments& arguments) const {
    return object().invoke(Access::get, member, arguments);
}

Value Value::get(std::string_view member) const {
    return get(member, Arguments());
}

Value Value::call(std::string_view member) const {
    return call(member, Arguments());
}

Value Value::call(std::string_view member, const Arguments& arguments) const {
    return object().invoke(Access::call, member, arguments);
}

void Value::set(std::string_view member, const Value& value) const {
    object().invoke(Access::set, member, {value});
}

void Value::set_reference(std::string_view member, const Value& value) const {
    object().invoke(Access::set_reference, member, {value});
}

std::unique_ptr<Enumeration> Value::enumerate() const {
    return object().enumerate();
}

bool Value::operator==(const Value& other) const {
    const auto* mine = if_holds<ArrayPtr>();
    const auto* theirs = other.if_holds<ArrayPtr>();
    if (mine == nullptr || theirs == nullptr) return storage_ == other.storage_;
    return (*mine)->lower_bound == (*theirs)->lower_bound && (*mine)->element == (*theirs)->element &&
           (*mine)->items == (*theirs)->items;
}

const Value& Array::at(std::int32_t index) const {
    if (index < lower_bound || index > upper_bound()) throw Error(RuntimeError::subscript_out_of_range);
    return items[static_cast<std::size_t>(index) - static_cast<std::size_t>(lower_bound)];
}

}  // namespace foliant::automation
