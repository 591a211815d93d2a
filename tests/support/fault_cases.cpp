#include "support/fault_cases.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>

#include "session/errors.h"

namespace foliant::tests {
namespace {

struct Case {
    FaultScene scene;
    ExpectedFaults expected;
    std::source_location place;
};

std::vector<Case>& all() {
    static std::vector<Case> cases;
    return cases;
}

void PrintTo(const Case& stated, std::ostream* out) {
    *out << stated.scene.name;
}

}  // namespace

MemberFaults::MemberFaults(const MemberCall& call, ExpectedFaults expected, std::source_location place) {
    const auto make = [call](core::BuildPDF& object) {
        automation::Arguments given = call.arguments;
        call.make(object, given);
    };
    all().push_back({{call.name(), call.row(), call.arrange, make}, std::move(expected), place});
}

ServiceFaults::ServiceFaults(std::string name, Arrange arrange,
                             const std::function<void(const session::Session&)>& steps,
                             ExpectedFaults expected, std::source_location place) {
    const auto make = [steps](core::BuildPDF& object) {
        session::with_error_trap([&] { steps(object.session()); }, [] {});
    };
    all().push_back({{std::move(name), nullptr, std::move(arrange), make}, std::move(expected), place});
}

bool has_fault_scene(const core::Member& member) {
    return std::any_of(all().begin(), all().end(),
                       [&](const Case& stated) { return stated.scene.member == &member; });
}

class Faults : public testing::TestWithParam<Case> {};

TEST_P(Faults, EndAsTheirSceneSays) {
    expect_faults(GetParam().scene, GetParam().expected, GetParam().place);
}

TEST_P(Faults, AreNotHiddenByACleanUpThatFailsAsWell) {
    expect_failing_clean_up_to_hide_nothing(GetParam().scene);
}

INSTANTIATE_TEST_SUITE_P(Scenes, Faults, testing::ValuesIn(all()),
                         [](const auto& test) { return test.param.scene.name; });

}  // namespace foliant::tests
