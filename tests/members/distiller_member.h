#pragma once

#include "automation/error.h"
#include "platform/stage/stage_object.h"
#include "support/member_test.h"

namespace foliant::members {

/// What the tests of the members share that end in Distiller.
class DistillerMember : public tests::MemberTest {
  protected:
    using MemberTest::MemberTest;

    void make_distiller_fail() {
        stage.when("Distiller.FileToPDF",
                   [](platform::stage::StageObject&, const automation::Arguments&) -> automation::Value {
                       throw automation::Error(-2147352567, "Distiller", "Out of paper");
                   });
    }

    bool holds_distiller() { return object().session().objAdobeDistiller.object != automation::Value(); }
};

}  // namespace foliant::members
