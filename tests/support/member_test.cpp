#include "support/member_test.h"

#include <algorithm>

namespace foliant::tests {

using automation::Argument;
using automation::Arguments;
using automation::Value;

namespace {

template <class SomeArguments>
auto find_named(SomeArguments& arguments, std::string_view name) {
    return std::find_if(arguments.begin(), arguments.end(),
                        [&](const Argument& argument) { return argument.name == name; });
}

}  // namespace

MemberTest::MemberTest(MemberCall usual) : usual_(std::move(usual)) {
    if (usual_.arrange) usual_.arrange(stage);
}

core::BuildPDF& MemberTest::object() {
    if (!object_) {
        object_.emplace(stage.platform(), events);
        stage.clear_journal();
    }
    return *object_;
}

void MemberTest::call(const Arguments& other) {
    last_ = usual_.arguments;
    for (const Argument& argument : other) {
        if (const auto place = find_named(last_, argument.name); place != last_.end())
            *place = argument;
        else
            last_.push_back(argument);
    }
    object();
    run_noting_error(stage, [&] { result = usual_.make(object(), last_); });
}

Value MemberTest::variable(std::string_view name) const {
    const auto place = find_named(last_, name);
    return place == last_.end() ? Value() : place->value;
}

}  // namespace foliant::tests
