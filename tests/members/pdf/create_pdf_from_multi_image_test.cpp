#include <gtest/gtest.h>

#include "automation/coerce.h"
#include "automation/error.h"
#include "core/dispatch.h"
#include "members/pdf/acrobat_endings.h"
#include "members/pdf/lists_of_files.h"
#include "platform/stage/stage_object.h"
#include "support/fault_cases.h"
#include "support/member_cases.h"
#include "support/member_test.h"

namespace foliant::members {
namespace {

using automation::Arguments;
using automation::named;
using automation::Value;
using platform::stage::Stage;
using platform::stage::StageObject;

void put_images_and_old_outputs(Stage& stage) {
    stage.folders = {"C:\\Temp"};
    put_files(stage, {"C:\\in\\a.jpg", "C:\\in\\b.png", "C:\\out\\album.pdf",
                      "C:\\Program Files\\Foliant\\_temp_1.pdf"});
}

const tests::MemberCall usual{
    .member = "CreatePDFfromMultiImage",
    .arrange = put_images_and_old_outputs,
    .arguments = {named("strPDFFile", "C:\\out\\album.pdf"),
                  named("varImageFiles", list_of({"C:\\in\\a.jpg", "C:\\gone.gif", "C:\\in\\b.png"}))}};

// Temporary files are numbered by the images that exist. Each nested call is whole, its tests of files too.
const tests::WholeJournal journal(usual, R"(
    length C:\in\a.jpg -> 1000
    length C:\Program Files\Foliant\_temp_0.pdf -> not found
    length C:\in\a.jpg -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    AcroExch.AVDoc.Open("C:\in\a.jpg", "")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.IsValid()
    length C:\Program Files\Foliant\_temp_0.pdf -> not found
    AcroExch.AVDoc.GetPDDoc()
    AcroExch.PDDoc.Save(Integer(37), "C:\Program Files\Foliant\_temp_0.pdf")
    AcroExch.PDDoc.Close()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
    length C:\gone.gif -> not found
    length C:\in\b.png -> 1000
    length C:\Program Files\Foliant\_temp_1.pdf -> 1000
    delete C:\Program Files\Foliant\_temp_1.pdf
    length C:\in\b.png -> 1000
    create AcroExch.App
    create AcroExch.AVDoc
    AcroExch.AVDoc.Open("C:\in\b.png", "")
    AcroExch.App.GetActiveDoc()
    release AcroExch.AVDoc
    AcroExch.AVDoc.IsValid()
    length C:\Program Files\Foliant\_temp_1.pdf -> not found
    AcroExch.AVDoc.GetPDDoc()
    AcroExch.PDDoc.Save(Integer(37), "C:\Program Files\Foliant\_temp_1.pdf")
    AcroExch.PDDoc.Close()
    AcroExch.AVDoc.Close(True)
    AcroExch.App.Exit()
    release AcroExch.AVDoc
    release AcroExch.PDDoc
    release AcroExch.App
    length C:\out\album.pdf -> 1000
    delete C:\out\album.pdf
    create AcroExch.PDDoc
    create AcroExch.PDDoc
    AcroExch.PDDoc.Create()
    length C:\out\album.pdf -> not found
    pump messages
    length C:\Program Files\Foliant\_temp_0.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Program Files\Foliant\_temp_0.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    pump messages
    length C:\Program Files\Foliant\_temp_1.pdf -> 1000
    AcroExch.PDDoc.Open("C:\Program Files\Foliant\_temp_1.pdf")
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.GetNumPages()
    AcroExch.PDDoc.InsertPages(Integer(2), <object>, Integer(0), Integer(3), True)
    AcroExch.PDDoc.Close()
    AcroExch.PDDoc.Save(Integer(5), "C:\out\album.pdf")
    AcroExch.PDDoc.Close()
    release AcroExch.PDDoc
    release AcroExch.PDDoc
    length C:\Program Files\Foliant\_temp_0.pdf -> 1000
    delete C:\Program Files\Foliant\_temp_0.pdf
    length C:\Program Files\Foliant\_temp_1.pdf -> 1000
    delete C:\Program Files\Foliant\_temp_1.pdf
)");

const tests::ParameterProbe parameters(usual, {.lines_with = {"AVDoc.Open", "Integer(5)"}, .expected = R"(
    AcroExch.AVDoc.Open("C:\in\a.jpg", "")
    AcroExch.AVDoc.Open("C:\in\b.png", "")
    AcroExch.PDDoc.Save(Integer(5), "C:\out\album.pdf")
)"});

// Nothing is let go but what a nested call holds, and what is temporary stays.
const tests::MemberFaults faults({.member = "CreatePDFfromMultiImage",
                                  .arrange = put_images_and_old_outputs,
                                  .arguments = {"C:\\out\\album.pdf", list_of({"C:\\in\\a.jpg"})}},
                                 {.endings = {let_both_go, release_both_documents},
                                  .from = "AcroExch.PDDoc.Save(Integer(37)",
                                  .report = R"(
    fails: AcroExch.PDDoc.Save(Integer(37), "C:\Program Files\Foliant\_temp_0.pdf")
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.AVDoc.Close(True)
    fails: AcroExch.App.Exit()
        let both go
        raise the failure
    fails: length C:\out\album.pdf
        go on, but
        - delete C:\out\album.pdf
        - length C:\out\album.pdf -> not found
        + length C:\out\album.pdf -> 1000
        + delete C:\out\album.pdf
    fails: delete C:\out\album.pdf
    fails: create AcroExch.PDDoc
        raise the failure
    fails: create AcroExch.PDDoc
        release AcroExch.PDDoc
        raise the failure
    fails: AcroExch.PDDoc.Create()
        release both documents
        raise the failure
    fails: length C:\out\album.pdf
        go on
    fails: pump messages
        release both documents
        raise the failure
    fails: length C:\Program Files\Foliant\_temp_0.pdf
        go on, but
        - AcroExch.PDDoc.Open("C:\Program Files\Foliant\_temp_0.pdf")
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.GetNumPages()
        - AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        - AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Open("C:\Program Files\Foliant\_temp_0.pdf")
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.GetNumPages()
    fails: AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
    fails: AcroExch.PDDoc.Close()
    fails: AcroExch.PDDoc.Save(Integer(5), "C:\out\album.pdf")
    fails: AcroExch.PDDoc.Close()
        release both documents
        raise the failure
    fails: length C:\Program Files\Foliant\_temp_0.pdf
        go on, but
        - delete C:\Program Files\Foliant\_temp_0.pdf
    fails: delete C:\Program Files\Foliant\_temp_0.pdf
        raise the failure
)"});

class CreatePDFfromMultiImage : public tests::MemberTest {
  protected:
    CreatePDFfromMultiImage() : MemberTest(usual) {}
};

TEST_F(CreatePDFfromMultiImage, DoesNothingWhenNoImageExists) {
    call({named("varImageFiles", list_of({"C:\\gone.gif", "C:\\also gone.gif"}))});
    expect_journal(R"(
        length C:\gone.gif -> not found
        length C:\also gone.gif -> not found
    )");
}

TEST_F(CreatePDFfromMultiImage, PutsItsTemporaryFilesWhereTempFilePathSays) {
    object().put_TempFilePath("C:\\Temp");
    stage.clear_journal();
    call();
    tests::expect_text(lines_with({"Integer(37)"}), R"(
        AcroExch.PDDoc.Save(Integer(37), "C:\Temp\_temp_0.pdf")
        AcroExch.PDDoc.Save(Integer(37), "C:\Temp\_temp_1.pdf")
    )");
}

TEST_F(CreatePDFfromMultiImage, WithoutATempFilePathPutsThemIntoTheCurrentFolder) {
    struct NoLibraryFolder : platform::Shell {
        std::optional<std::string> special_folder(std::intptr_t, std::int32_t) override { return {}; }
        std::string library_folder() override {
            throw automation::Error(automation::RuntimeError::path_not_found);
        }
    } shell;
    const platform::Platform usual_one = stage.platform();
    core::BuildPDF object({.registry = usual_one.registry,
                           .files = usual_one.files,
                           .clock = usual_one.clock,
                           .windows = usual_one.windows,
                           .programs = usual_one.programs,
                           .shell = shell,
                           .servers = usual_one.servers,
                           .printers = usual_one.printers},
                          events);
    stage.clear_journal();
    Arguments arguments = usual.arguments;
    usual.make(object, arguments);
    tests::expect_text(lines_with({"Save", "PDDoc.Open", "delete"}), R"(
        AcroExch.PDDoc.Save(Integer(37), "_temp_0.pdf")
        AcroExch.PDDoc.Save(Integer(37), "_temp_1.pdf")
        delete C:\out\album.pdf
        AcroExch.PDDoc.Open("_temp_0.pdf")
        AcroExch.PDDoc.Open("_temp_1.pdf")
        AcroExch.PDDoc.Save(Integer(5), "C:\out\album.pdf")
        delete _temp_0.pdf
        delete _temp_1.pdf
    )");
}

TEST_F(CreatePDFfromMultiImage, LeavesOutAnImageOfWhichAcrobatMakesNoDocument) {
    int image = 0;
    stage.when("AcroExch.AVDoc.IsValid", [&](StageObject&, const Arguments&) { return Value(++image != 1); });
    call();
    tests::expect_text(journal_from("AcroExch.PDDoc.Create"), R"(
        AcroExch.PDDoc.Create()
        length C:\out\album.pdf -> not found
        pump messages
        length C:\Program Files\Foliant\_temp_0.pdf -> not found
        pump messages
        length C:\Program Files\Foliant\_temp_1.pdf -> 1000
        AcroExch.PDDoc.Open("C:\Program Files\Foliant\_temp_1.pdf")
        AcroExch.PDDoc.GetNumPages()
        AcroExch.PDDoc.GetNumPages()
        AcroExch.PDDoc.InsertPages(Integer(-1), <object>, Integer(0), Integer(3), True)
        AcroExch.PDDoc.Close()
        AcroExch.PDDoc.Save(Integer(5), "C:\out\album.pdf")
        AcroExch.PDDoc.Close()
        release AcroExch.PDDoc
        release AcroExch.PDDoc
        length C:\Program Files\Foliant\_temp_0.pdf -> not found
        length C:\Program Files\Foliant\_temp_1.pdf -> 1000
        delete C:\Program Files\Foliant\_temp_1.pdf
    )");
}

TEST_F(CreatePDFfromMultiImage, PassesOnWhatAnImageRaisesAndLeavesTheFilesMadeSoFar) {
    int image = 0;
    stage.when("AcroExch.PDDoc.Save", [&](StageObject& self, const Arguments& arguments) {
        const bool first = ++image == 1;
        if (first) self.stage().put_file(automation::to_text(arguments.at(1).value));
        return Value(first);
    });
    call();
    EXPECT_EQ(last_line(),
              R"(raise -2147467008 from Foliant: Can't save file C:\Program Files\Foliant\_temp_1.pdf.)");
    tests::expect_text(lines_with({"delete"}), R"(delete C:\Program Files\Foliant\_temp_1.pdf)");
}

TEST_F(CreatePDFfromMultiImage, TakesNoMoreImagesThanItsCounterHolds) {
    call({named("varImageFiles", list_of(std::vector<Value>(40000, "C:\\gone.gif")))});
    expect_journal("raise 6 from Foliant: Overflow");
}

}  // namespace
}  // namespace foliant::members
