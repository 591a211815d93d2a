// The usual machine: its hosts do on stage what the real ones would, so that the members find what they wait
// for.

#include "platform/stage/cast.h"

#include <gtest/gtest.h>

#include "platform/stage/stage_object.h"
#include "support/staged_session.h"

namespace foliant::platform::stage {
namespace {

using automation::named;
using automation::Value;

class Cast : public testing::Test {
  protected:
    Cast() { cast_usual_machine(stage); }

    bool exists(const std::string& path) {
        try {
            return world.files.length(path) >= 0;
        } catch (const automation::Error&) {
            return false;
        }
    }

    Value open_document() {
        return Value(world.servers.create("Word.Application")).get("Documents").call("Open", {"a.doc"});
    }

    Stage stage;
    Platform world = stage.platform();
};

TEST_F(Cast, WordPrintsToTheFileThatItIsGiven) {
    open_document().call("PrintOut", {named("Outputfilename", "C:\\out\\a.ps")});
    EXPECT_TRUE(exists("C:\\out\\a.ps"));
}

TEST_F(Cast, WordPrintsToTheFileThatTheSenderTypedIntoTheSaveDialog) {
    const std::string sender = stage.system_folder + "\\quorixsend.exe";
    world.programs.start(sender + " save pdf file as~Edit~C:\\out\\a.pdf~0~0~", WindowStyle::hidden);
    world.programs.start(sender + " adobe pdf - security~Button~~0~0~", WindowStyle::hidden);
    EXPECT_FALSE(exists("C:\\out\\a.pdf"));
    open_document().call("PrintOut");
    EXPECT_TRUE(exists("C:\\out\\a.pdf"));
}

TEST_F(Cast, BothDistillersWriteThePdfAndAnnounceTheirWork) {
    tests::EventsInJournal heard(stage);
    for (const auto& [class_id, method] :
         {std::pair("{1CD675B2-ECD1-11D1-B976-00600802DB86}", "FileToPDF"),
          std::pair("{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}", "FileToPDF2")}) {
        const Value distiller = world.servers.create(class_id);
        const auto subscription = distiller.object().subscribe(heard);
        distiller.call(method, {"a.ps", std::string(method) + ".pdf", "", true});
        EXPECT_TRUE(exists(std::string(method) + ".pdf"));
    }
    const std::string journal = stage.journal();
    EXPECT_NE(journal.find("event OnJobStart(\"a.ps\", \"FileToPDF.pdf\")\n"
                           "event OnPercentDone(Long(100))\n"
                           "event OnPageNumber(Long(1))\n"
                           "event OnJobDone(\"a.ps\", \"FileToPDF.pdf\")\n"),
              std::string::npos)
        << journal;
}

}  // namespace
}  // namespace foliant::platform::stage
