#pragma once

#include <functional>
#include <string>

#include "session/session.h"
#include "support/fault_scene.h"
#include "support/member_call.h"

namespace foliant::tests {

/// What comes of a call of a member when its outside actions fail, one after the other. Making one is having
/// it tested, see support/member_cases.h.
class MemberFaults {
  public:
    MemberFaults(const MemberCall& call, ExpectedFaults expected,
                 std::source_location place = std::source_location::current());
};

/// The same for steps that several members share; they run inside an error trap, as they do in a member.
class ServiceFaults {
  public:
    ServiceFaults(std::string name, Arrange arrange,
                  const std::function<void(const session::Session&)>& steps, ExpectedFaults expected,
                  std::source_location place = std::source_location::current());
};

/// Whether this program's files have a scene that calls that member.
bool has_fault_scene(const core::Member& member);

}  // namespace foliant::tests
