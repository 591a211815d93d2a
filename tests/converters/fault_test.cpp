// Every outside action of every member fails in turn. Each scene shows what comes of it; the table of members
// says which scenes there have to be, so that none can be forgotten.

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

#include "converters/fault_scenes.h"
#include "core/members.h"
#include "platform/stage/cast/cast.h"
#include "support/staged_session.h"

namespace foliant::converters {
namespace {

using automation::Value;
using core::Member;
using tests::FaultScene;

std::vector<FaultScene> all_scenes() {
    std::vector<FaultScene> all;
    for (const auto& family : {settings_scenes(), postscript_scenes(), word_scenes(), pdf_writer_scenes()})
        all.insert(all.end(), family.begin(), family.end());
    return all;
}

class Faults : public testing::TestWithParam<FaultScene> {};

TEST_P(Faults, EndAsTheirSceneSays) {
    tests::expect_text(tests::fault_report(GetParam()), GetParam().expected);
}

TEST_P(Faults, AreNotHiddenByACleanUpThatFailsAsWell) {
    tests::expect_failing_clean_up_to_hide_nothing(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Scenes, Faults, testing::ValuesIn(all_scenes()),
                         [](const auto& test) { return test.param.name; });

TEST(FaultScenes, ExistForExactlyTheMembersThatThereAre) {
    const std::vector<FaultScene> scenes = all_scenes();
    for (const Member& member : core::members) {
        const bool has_scene = std::any_of(scenes.begin(), scenes.end(),
                                           [&](const FaultScene& scene) { return scene.member == &member; });
        EXPECT_EQ(has_scene, member.available) << member.name << ", slot " << member.slot;
    }
}

/// An argument that every parameter of that type accepts.
Value argument_of(core::ValueType type) {
    switch (type) {
        case core::ValueType::string:
        case core::ValueType::variant:
            return "x";
        case core::ValueType::object:
            return automation::ObjectPtr();
        default:
            return std::int32_t{0};
    }
}

TEST(MembersOfLaterVersions, RaiseOneClearErrorAndDoNothing) {
    platform::stage::Stage stage;
    tests::EventsInJournal events(stage);
    platform::stage::cast_usual_machine(stage);
    core::BuildPDF object(stage.platform(), events);
    for (const Member& member : core::members) {
        if (member.available) continue;
        std::array<Value, core::most_parameters> arguments;
        for (std::size_t i = 0; i < member.parameter_count; ++i)
            arguments[i] = argument_of(member.parameters()[i].type);
        stage.clear_journal();
        tests::run_noting_error(stage, [&] {
            member.call(object, member, {arguments.data(), member.parameter_count});
        });
        tests::expect_journal(stage, "raise 445 from Foliant: " + std::string(member.name) +
                                         " is not available in this version of Foliant.");
    }
}

}  // namespace
}  // namespace foliant::converters
