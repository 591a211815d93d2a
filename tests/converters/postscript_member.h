#pragma once

#include <string>

#include "automation/error.h"
#include "converters/postscript.h"
#include "platform/stage/stage_object.h"
#include "support/staged_session.h"

namespace foliant::converters {

/// What the tests of both PostScript members share.
class PostScriptMember : public tests::StagedSession {
  protected:
    void make_distiller_fail() {
        stage.when("Distiller.FileToPDF",
                   [](platform::stage::StageObject&, const automation::Arguments&) -> automation::Value {
                       throw automation::Error(-2147352567, "Distiller", "Out of paper");
                   });
    }

    bool holds_distiller() { return session().objAdobeDistiller.object != automation::Value(); }

    std::string printer = "My printer";
    engines::DistillerOptions options;
};

}  // namespace foliant::converters
