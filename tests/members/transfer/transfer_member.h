#pragma once

#include <memory>

#include "automation/object.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

/// What the tests of the two members share that transfer files.
namespace foliant::members {

/// The Internet Transfer control that a client hands over. It lives outside the stages, as a client's does,
/// and acts on the one that it was put on last.
class ClientsControl : public automation::Object {
  public:
    void put_on(platform::stage::Stage& stage) { stage_ = &stage; }

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override {
        constexpr bool owned = false;  // by the stage: it is not released when a call is over
        const auto staged = std::make_shared<platform::stage::StageObject>(*stage_, "InetCtls.Inet", owned);
        return staged->invoke(access, member, arguments);
    }

  private:
    platform::stage::Stage* stage_ = nullptr;
};

inline const std::shared_ptr<ClientsControl> clients_control = std::make_shared<ClientsControl>();

inline void hand_over_control(platform::stage::Stage& stage) {
    clients_control->put_on(stage);
}

}  // namespace foliant::members
