#pragma once

#include <optional>
#include <string_view>

#include "support/member_call.h"
#include "support/staged_session.h"

namespace foliant::tests {

/// A test of one member of the class. The machine of its usual call is its stage.
class MemberTest : public StagedTest {
  protected:
    /// The usual call's arguments are named ones.
    explicit MemberTest(MemberCall usual);

    /// The object. Its start-up, whose lines are forgotten, waits for the first use: until then a test can
    /// change the machine.
    core::BuildPDF& object();

    /// Calls the member with the usual arguments, but for those that are given (by name) instead or besides.
    /// What it raises is the journal's last line.
    void call(const automation::Arguments& other = {});

    /// What the caller's variable of that name holds after the call; nothing for one that was not given.
    automation::Value variable(std::string_view name) const;

    automation::Value result;  ///< of the last call

  private:
    MemberCall usual_;
    automation::Arguments last_;
    std::optional<core::BuildPDF> object_;
};

}  // namespace foliant::tests
