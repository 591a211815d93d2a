#pragma once

#include <span>
#include <string_view>

#include "automation/object.h"
#include "core/build_pdf.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage.h"

namespace foliant::bench {

class NoEvents : public automation::EventSink {
    void notify(std::string_view, std::span<const automation::Value>) override {}
};

/// A `BuildPDF` on the stage of a usual machine, with one Word document and one PostScript file as input.
/// Hosts on the stage answer at once and waits take no time, so what is left is our own code, and the journal
/// that the stage keeps.
struct StagedObject {
    StagedObject() {
        stage.put_file("C:\\in\\letter.doc");
        stage.put_file("C:\\in\\letter.ps");
    }

    /// Makes the stage forget what a call left on it, so that a thousandth call finds what the first found.
    void strike() {
        stage.clear_journal();
        stage.files.erase("C:\\out\\letter.pdf");
    }

    platform::stage::Stage stage;
    NoEvents events;
    core::BuildPDF object{(platform::stage::cast_usual_machine(stage), stage.platform()), events};
};

}  // namespace foliant::bench
