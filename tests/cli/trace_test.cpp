#include "cli/trace.h"

#include <gtest/gtest.h>

#include "cli/call.h"
#include "core/dispatch.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage.h"

namespace foliant::cli {
namespace {

using automation::named;
using platform::stage::Stage;

class Silence : public automation::EventSink {
    void notify(std::string_view, std::span<const automation::Value>) override {}
};

class Trace : public testing::Test {
  protected:
    Trace() {
        cast_usual_machine(stage);
        stage.separator = '/';
        stage.put_file("letter.docx");
        request.member = core::find_member(*core::find_dispid("CreatePSfromWord"), automation::Access::call);
        request.arguments = {named("strPSFile", "letter.ps"), named("strWordDocument", "letter.docx")};
    }

    Outcome call() {
        Silence silence;
        return call_member(request, traced.platform(), silence);
    }

    Stage stage;
    std::string lines;
    TracedPlatform traced{stage.platform(), [this](const std::string& line) { lines += line + "\n"; }};
    Request request;
};

TEST_F(Trace, TellsEveryCallAsItIsMade) {
    const Outcome outcome = call();
    EXPECT_FALSE(outcome.error.has_value());
    const std::size_t begin = lines.find("create Word.Application");
    ASSERT_NE(begin, std::string::npos) << lines;
    EXPECT_EQ(lines.substr(begin),
              "create Word.Application\n"
              "Word.Documents.Open(\"letter.docx\", PasswordDocument:=\"\", WritePasswordDocument:=\"\")\n"
              "Word.Application.DisplayAlerts = Integer(0)\n"
              "Word.PageSetup.Orientation = Integer(0)\n"
              "Word.Application.ActivePrinter -> \"Office printer\"\n"
              "Word.Application.ActivePrinter = \"Adobe PDF\"\n"
              "length letter.ps -> not found\n"
              "Word.Document.PrintOut(Outputfilename:=\"letter.ps\")\n"
              "length letter.ps -> 1000\n"
              "length letter.ps -> 1000\n"
              "length letter.ps -> 1000\n"
              "Word.Application.ActivePrinter = \"Office printer\"\n"
              "Word.Application.DisplayAlerts = Integer(-1)\n"
              "Word.Document.Close(False)\n"
              "Word.Application.Quit()\n"
              "length letter.ps -> 1000\n");
}

TEST_F(Trace, ChangesNothingOfWhatTheMemberDoes) {
    call();
    const std::string with = stage.journal();
    Stage other;
    cast_usual_machine(other);
    other.separator = '/';
    other.put_file("letter.docx");
    Silence silence;
    call_member(request, other.platform(), silence);
    EXPECT_EQ(with, other.journal());
}

TEST_F(Trace, TellsWhatFailed) {
    stage.missing_classes.insert("Word.Application");
    call();
    EXPECT_NE(lines.find("create Word.Application\n  failed: ActiveX component can't create object"),
              std::string::npos)
        << lines;
}

}  // namespace
}  // namespace foliant::cli
