#include "automation/describe.h"

#include "automation/coerce.h"

namespace foliant::automation {
namespace {

std::string describe_array(const Array& array) {
    std::string text =
        "(" + std::to_string(array.lower_bound) + " To " + std::to_string(array.upper_bound()) + "){";
    for (std::size_t i = 0; i < array.items.size(); ++i) {
        if (i > 0) text += ", ";
        text += describe(array.items[i]);
    }
    return text + "}";
}

}  // namespace

std::string describe(const Value& value) {
    if (value.holds<Empty>()) return "<empty>";
    if (value.holds<Missing>()) return "<missing>";
    if (value.holds<Null>()) return "<null>";
    if (const auto* text = value.if_holds<std::string>()) return "\"" + *text + "\"";
    if (const auto* object = value.if_holds<ObjectPtr>()) return *object == nullptr ? "Nothing" : "<object>";
    if (const auto* array = value.if_holds<ArrayPtr>()) return describe_array(**array);
    if (value.holds<bool>()) return to_text(value);
    const char* type = value.holds<std::int16_t>()   ? "Integer"
                       : value.holds<std::int32_t>() ? "Long"
                       : value.holds<float>()        ? "Single"
                                                     : "Double";
    return std::string(type) + "(" + to_text(value) + ")";
}

std::string describe(const Arguments& arguments) {
    std::string text;
    for (const Argument& argument : arguments) {
        if (!text.empty()) text += ", ";
        if (!argument.name.empty()) text += argument.name + ":=";
        text += describe(argument.value);
    }
    return text;
}

}  // namespace foliant::automation
