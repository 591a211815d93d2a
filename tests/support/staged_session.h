#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <source_location>
#include <span>
#include <string>
#include <string_view>

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

/// The same for any text of several lines.
void expect_text(const Lines& actual, std::string_view expected,
                 std::source_location place = std::source_location::current());

/// A test with one session on the stage of a usual machine: Acrobat 6.0, its PDF printer, the window sender
/// in the system folder, a Word that prints, a Distiller that converts.
class StagedSession : public testing::Test {
  protected:
    StagedSession();

    /// The session. Its start-up, whose lines are forgotten, waits for the first use: until then a test can
    /// change the machine.
    session::Session& session();

    /// What the registry says about Acrobat; before the first use of `session`.
    void register_acrobat(const std::string& version);

    /// Runs one call; see `run_noting_error`.
    void run(const std::function<void()>& steps);

    void expect_journal(std::string_view expected,
                        std::source_location place = std::source_location::current()) {
        tests::expect_journal(stage, expected, place);
    }

    platform::stage::Stage stage;
    EventsInJournal events{stage};

  private:
    std::optional<session::Session> session_;
};

}  // namespace foliant::tests
