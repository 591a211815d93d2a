#include "engines/event_relay.h"

#include <gtest/gtest.h>
#include <vector>

#include "support/staged_session.h"

namespace foliant::engines {
namespace {

using automation::Value;

class EventRelayTest : public testing::Test {
  protected:
    void notify(std::string_view notification, const std::vector<Value>& arguments) {
        relay.notify(notification, arguments);
    }

    platform::stage::Stage stage;
    tests::EventsInJournal component{stage};
    EventRelay relay{component};
};

TEST_F(EventRelayTest, EachNotificationIsTheEventOfTheSameMeaning) {
    notify("OnJobStart", {"C:\\in\\a.ps", "C:\\out\\a.pdf"});
    notify("OnPercentDone", {std::int32_t{50}});
    notify("OnPageNumber", {std::int32_t{3}});
    notify("OnLogMessage", {"%%[Page: 3]%%"});
    notify("OnJobDone", {"C:\\in\\a.ps", "C:\\out\\a.pdf"});
    notify("OnJobFail", {"C:\\in\\a.ps", "C:\\out\\a.pdf"});
    tests::expect_journal(stage, R"(
        event JobStart("C:\in\a.ps", "C:\out\a.pdf")
        event PercentDone(Long(50))
        event PageNumber(Long(3))
        event LogMessage("%%[Page: 3]%%")
        event JobDone("C:\in\a.ps", "C:\out\a.pdf")
        event JobFail("C:\in\a.ps", "C:\out\a.pdf")
    )");
}

TEST_F(EventRelayTest, OtherNotificationsAreNotPassedOn) {
    notify("OnSomethingNew", {std::int32_t{1}});
    notify("onjobstart", {"a", "b"});
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(EventRelayTest, ClientsGetCopies) {
    class Keeper : public automation::EventSink {
      public:
        void notify(std::string_view, std::span<const Value> arguments) override { seen = arguments.data(); }
        const Value* seen = nullptr;
    } keeper;
    EventRelay to_keeper(keeper);
    const std::vector<Value> of_the_job{"C:\\in\\a.ps", "C:\\out\\a.pdf"};
    to_keeper.notify("OnJobStart", of_the_job);
    EXPECT_NE(keeper.seen, of_the_job.data());
}

}  // namespace
}  // namespace foliant::engines
