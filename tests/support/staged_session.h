#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <source_location>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "platform/stage/stage.h"
#include "session/session.h"
#include "support/difference.h"

namespace foliant::tests {

/// Writes every event of the component into the journal: `event JobStart("C:\in\a.ps", "C:\out\a.pdf")`.
class EventsInJournal : public automation::EventSink {
  public:
    explicit EventsInJournal(platform::stage::Stage& stage) : stage_(stage) {}
    void notify(std::string_view event, std::span<const automation::Value> arguments) override;

    /// What else a client does in its handler; may be empty.
    std::function<void(std::string_view event)> handler;

  private:
    platform::stage::Stage& stage_;
};

/// Runs steps, and writes what they raise as the last line: `raise 53 from Foliant: File not found`.
void run_noting_error(platform::stage::Stage& stage, const std::function<void()>& steps);

/// Compares a journal with the expected one, indented as you like, as a whole; a failure shows both in one,
/// line by line, at the place of the call.
void expect_journal(const platform::stage::Stage& stage, std::string_view expected,
                    std::source_location place = std::source_location::current());

/// What the registry says about Acrobat.
void register_acrobat(platform::stage::Stage& stage, const std::string& version);

/// A test on the stage of a usual machine (see platform/stage/cast/cast.h).
class StagedTest : public testing::Test {
  protected:
    using Place = std::source_location;

    StagedTest();

    /// What the registry says about Acrobat; before the object of the test is made.
    void register_acrobat(const std::string& version) { tests::register_acrobat(stage, version); }

    void expect_journal(std::string_view expected, Place place = Place::current()) {
        tests::expect_journal(stage, expected, place);
    }

    // Parts of the journal, see support/lines.h.

    Lines journal_from(std::string_view text, Place place = Place::current()) const {
        return lines_from(stage.lines(), text, place);
    }
    Lines journal_between(std::string_view first, std::string_view last,
                          Place place = Place::current()) const {
        return lines_between(stage.lines(), first, last, place);
    }
    Lines lines_with(const std::vector<std::string_view>& texts, Place place = Place::current()) const {
        return tests::lines_with(stage.lines(), texts, place);
    }
    std::string line_with(std::string_view text, Place place = Place::current()) const {
        return tests::line_with(stage.lines(), text, place);
    }
    /// "" when nothing was done.
    std::string last_line() const { return stage.lines().empty() ? "" : stage.lines().back(); }

    platform::stage::Stage stage;
    EventsInJournal events{stage};
};

/// A test with one session on that stage.
class StagedSession : public StagedTest {
  protected:
    /// The session. Its start-up, whose lines are forgotten, waits for the first use: until then a test can
    /// change the machine.
    session::Session& session();

    /// Runs one call; see `run_noting_error`.
    void run(const std::function<void()>& steps);

  private:
    std::optional<session::Session> session_;
};

}  // namespace foliant::tests
