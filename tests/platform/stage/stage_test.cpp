// What the tests of the members rely on: that the journal tells everything, that the k-th action fails and
// no other, and that time passes only where it is said to.

#include "platform/stage/stage.h"

#include <gtest/gtest.h>
#include <stdexcept>

#include "platform/stage/stage_object.h"
#include "support/staged_session.h"

namespace foliant::platform::stage {
namespace {

using automation::Arguments;
using automation::Error;
using automation::Missing;
using automation::named;
using automation::Object;
using automation::RuntimeError;
using automation::Value;

class StageTest : public testing::Test {
  protected:
    void run(const std::function<void()>& steps) { tests::run_noting_error(stage, steps); }
    void expect_journal(std::string_view expected,
                        std::source_location place = std::source_location::current()) {
        tests::expect_journal(stage, expected, place);
    }

    Stage stage;
    Platform world = stage.platform();
};

using StageJournal = StageTest;
using StageFailures = StageTest;
using StageObjects = StageTest;
using StageFilesTest = StageTest;
using StagePrintersTest = StageTest;
using StageTime = StageTest;
using StageWindowsTest = StageTest;
using StageProgramsTest = StageTest;
using StageRegistryTest = StageTest;

// The journal.

TEST_F(StageJournal, TellsHowObjectsWereReached) {
    const Value word = world.servers.create("Word.Application");
    stage.answer("Word.Application.ActivePrinter", "Office");
    word.get("ActivePrinter");
    word.set("DisplayAlerts", std::int16_t{0});
    word.set_reference("Control", word);
    word.get("Documents").call("Open", {"a.doc", true, named("Pages", "1-3"), std::int32_t{4}, Missing{}});
    expect_journal(R"(
        create Word.Application
        Word.Application.ActivePrinter -> "Office"
        Word.Application.DisplayAlerts = Integer(0)
        Set Word.Application.Control = <object>
        Word.Application.Documents
        Word.Documents.Open("a.doc", True, Pages:="1-3", Long(4), <missing>)
    )");
}

TEST_F(StageJournal, NamesWhatAnObjectAnswersAfterTheApplication) {
    const Value excel = world.servers.create("Excel.Application");
    const Value word = world.servers.create("Word.Application");
    stage.answer_object("Word.Documents.Open", "Word.Document");
    const Value document = word.get("Documents").call("Open", {"a.doc"});
    document.get("Sections", {std::int32_t{1}}).get("Headers").call("Clear");
    excel.get("ActiveWorkbook").set("Saved", true);
    expect_journal(R"(
        create Excel.Application
        create Word.Application
        Word.Application.Documents
        Word.Documents.Open("a.doc")
        Word.Document.Sections(Long(1))
        Word.Sections.Headers
        Word.Headers.Clear()
        Excel.Application.ActiveWorkbook
        Excel.ActiveWorkbook.Saved = True
    )");
}

TEST_F(StageJournal, ReleasesAreToldOfCreatedObjectsButNotOfThoseOnTheWay) {
    {
        const Value word = world.servers.create("Word.Application");
        word.get("Documents");
    }
    expect_journal(R"(
        create Word.Application
        Word.Application.Documents
        release Word.Application
    )");
}

TEST_F(StageJournal, ShowsEachLineAtOnceToThoseWhoWantIt) {
    std::string seen;
    stage.on_line = [&](const std::string& line) { seen += "[" + line + "]"; };
    world.clock.pump_messages();
    stage.note("a remark");
    EXPECT_EQ(seen, "[pump messages][a remark]");
}

TEST_F(StageJournal, RemarksAreNoActions) {
    stage.note("a remark");
    EXPECT_EQ(stage.actions(), 0);
    world.clock.pump_messages();
    EXPECT_EQ(stage.actions(), 1);
}

TEST_F(StageJournal, ClearingStartsTheCountAgain) {
    world.clock.pump_messages();
    stage.clear_journal();
    EXPECT_EQ(stage.journal(), "");
    EXPECT_EQ(stage.actions(), 0);
}

TEST_F(StageJournal, AnEndlessWaitIsEnded) {
    EXPECT_THROW(while (true) world.clock.pump_messages(), std::logic_error);
}

TEST_F(StageJournal, AnEndlessWaitThatPassesOverErrorsEndsTheProcess) {
    const auto wait = [&] {
        while (true) {
            try {
                world.clock.pump_messages();
            } catch (...) {
                continue;
            }
        }
    };
    EXPECT_DEATH(wait(), "the stage saw too many actions, the last: pump messages");
}

// Failing.

TEST_F(StageFailures, TheKthActionFailsAndNoOther) {
    stage.fail_action(2, Error(-2147352567, "Word", "made to fail"));
    for (int i = 0; i < 3; ++i)
        run([&] { world.clock.sleep(10); });
    expect_journal(R"(
        sleep 10 ms
        sleep 10 ms -> fails
        raise -2147352567 from Word: made to fail
        sleep 10 ms
    )");
}

TEST_F(StageFailures, EverythingFromTheKthOnCanFailWithAnErrorOfItsOwn) {
    stage.fail_action(2, Error(1, "", "first"));
    stage.fail_actions_from(3, Error(2, "", "later"));
    for (int i = 0; i < 4; ++i)
        run([&] { world.clock.sleep(10); });
    expect_journal(R"(
        sleep 10 ms
        sleep 10 ms -> fails
        raise 1 from : first
        sleep 10 ms -> fails
        raise 2 from : later
        sleep 10 ms -> fails
        raise 2 from : later
    )");
}

TEST_F(StageFailures, WhatFailsHasNoEffect) {
    stage.put_file("C:\\a.ps");
    stage.fail_actions_from(1, Error(RuntimeError::permission_denied));
    run([&] { world.files.remove("C:\\a.ps"); });
    run([&] { world.clock.sleep(1000); });
    run([&] { world.files.create_text("C:\\b.ps", TextPurpose::result); });
    run([&] { world.files.make_folder("C:\\c"); });
    stage.fail_actions_from(0, Error(RuntimeError::permission_denied));
    EXPECT_EQ(world.files.length("C:\\a.ps"), 1000);
    EXPECT_EQ(stage.now, 0U);
    EXPECT_FALSE(stage.files.contains("C:\\b.ps"));
    EXPECT_TRUE(stage.folders.empty());
}

TEST_F(StageFailures, CallsThatAnswerWithACodeAnswerThatTheyWereRefused) {
    stage.fail_action(1, Error(RuntimeError::permission_denied));
    RegistryKey opened = 0;
    EXPECT_EQ(world.registry.open_key(hkey_local_machine, "SOFTWARE", 1, opened), registry_access_denied);
    EXPECT_EQ(opened, 0U);
}

// Objects.

TEST_F(StageObjects, DoWhatTheScriptSaysAfterTheirLineIsWritten) {
    stage.when("Document.PrintOut", [](StageObject& self, const Arguments& arguments) -> Value {
        self.stage().note("printing " + std::to_string(arguments.size()));
        throw Error(RuntimeError::device_io_error);
    });
    const Value document = stage.make_object("Document");
    run([&] { document.call("PrintOut", {"x"}); });
    expect_journal(R"(
        Document.PrintOut("x")
        printing 1
        raise 57 from : Device I/O error
    )");
}

TEST_F(StageObjects, AreNotifiedOnlyWhileSomebodyListens) {
    class Listener : public automation::EventSink {
      public:
        explicit Listener(Stage& stage) : stage_(stage) {}
        void notify(std::string_view event, std::span<const Value>) override {
            stage_.note("heard " + std::string(event));
        }

      private:
        Stage& stage_;
    } listener(stage);
    stage.when("Distiller.Work", [](StageObject& self, const Arguments&) {
        self.notify("OnPageNumber", {std::int32_t{1}});
        return Value();
    });
    const Value distiller = stage.make_object("Distiller");
    {
        const auto subscription = distiller.object().subscribe(listener);
        distiller.call("Work");
    }
    distiller.call("Work");
    expect_journal(R"(
        listen to Distiller
        Distiller.Work()
        heard OnPageNumber
        stop listening to Distiller
        Distiller.Work()
    )");
}

TEST_F(StageObjects, AClassThatIsNotInstalledCannotBeCreated) {
    stage.call_class("{GUID}", "Distiller");
    stage.missing_classes = {"{GUID}"};
    run([&] { world.servers.create("{GUID}"); });
    expect_journal(R"(
        create Distiller
        raise 429 from : ActiveX component can't create object
    )");
}

TEST_F(StageObjects, EachElementOfACollectionIsAnAction) {
    stage.when("Access.Printers._NewEnum", [](StageObject& self, const Arguments&) {
        automation::Array printers;
        printers.items = {std::make_shared<StageObject>(self.stage(), "Access.Printer", false), "a text"};
        return Value(printers);
    });
    stage.answer("Access.Printer.DeviceName", "Adobe PDF");
    const Value access = stage.make_object("Access");
    const auto printers = access.get("Printers").enumerate();
    printers->next()->get("DeviceName");
    while (printers->next()) {
    }
    EXPECT_EQ(stage.actions(), 6);
    expect_journal(R"(
        Access.Printers
        enumerate Access.Printers
        next of Access.Printers -> Access.Printer
        Access.Printer.DeviceName -> "Adobe PDF"
        next of Access.Printers -> "a text"
        next of Access.Printers -> none
    )");
}

TEST_F(StageObjects, ACollectionWithoutAScriptIsEmptyAndAnyOfItsActionsCanFail) {
    const Value printers = stage.make_object("Access.Printers");
    stage.fail_action(2, Error(RuntimeError::permission_denied));
    run([&] { printers.enumerate()->next(); });
    EXPECT_EQ(printers.enumerate()->next(), std::nullopt);
    expect_journal(R"(
        enumerate Access.Printers
        next of Access.Printers -> fails
        raise 70 from : Permission denied
        enumerate Access.Printers
        next of Access.Printers -> none
    )");
}

TEST_F(StageObjects, AreCountedAmongTheLiving) {
    const long before = Object::live_objects();
    {
        const Value word = world.servers.create("Word.Application");
        EXPECT_EQ(Object::live_objects(), before + 1);
    }
    EXPECT_EQ(Object::live_objects(), before);
}

// Files.

TEST_F(StageFilesTest, AppearInTimeAndGrowWithEachLook) {
    stage.files["C:\\a.ps"] = {.appears_at = 2000, .lengths = {10, 20, 30}, .content = {}};
    run([&] { world.files.length("C:\\a.ps"); });
    world.clock.sleep(2000);
    for (int i = 0; i < 4; ++i)
        world.files.length("C:\\a.ps");
    expect_journal(R"(
        length C:\a.ps -> not found
        raise 53 from : File not found
        sleep 2000 ms
        length C:\a.ps -> 10
        length C:\a.ps -> 20
        length C:\a.ps -> 30
        length C:\a.ps -> 30
    )");
}

TEST_F(StageFilesTest, AreGoneWhenTheyWereDeleted) {
    stage.put_file("C:\\a.ps");
    world.files.remove("C:\\a.ps");
    run([&] { world.files.length("C:\\a.ps"); });
    run([&] { world.files.remove("C:\\a.ps"); });
    expect_journal(R"(
        delete C:\a.ps
        length C:\a.ps -> not found
        raise 53 from : File not found
        delete C:\a.ps
        raise 53 from : File not found
    )");
}

TEST_F(StageFilesTest, ARealFileIsSeenUntilItIsDeletedOnStage) {
    stage.real_length = [](const std::string& path) {
        return path == "C:\\real.doc" ? std::optional<std::int64_t>(7) : std::nullopt;
    };
    EXPECT_EQ(world.files.length("C:\\real.doc"), 7);
    world.files.remove("C:\\real.doc");
    EXPECT_THROW(world.files.length("C:\\real.doc"), Error);
}

TEST_F(StageFilesTest, WrittenLinesAreToldAndKept) {
    {
        const auto text = world.files.create_text("C:\\book.ps", TextPurpose::result);
        text->write_line("(C:/in/a.ps) prun");
        text->write_line("");
        text->close();
    }
    expect_journal(R"(
        create text file C:\book.ps
        write C:\book.ps: (C:/in/a.ps) prun
        write C:\book.ps:
        close C:\book.ps
    )");
    EXPECT_EQ(stage.files["C:\\book.ps"].content, "(C:/in/a.ps) prun\r\n\r\n");
}

TEST_F(StageFilesTest, AFileThatNobodyClosedIsClosedWhenItIsLetGo) {
    { const auto text = world.files.create_text("C:\\book.ps", TextPurpose::result); }
    expect_journal(R"(
        create text file C:\book.ps
        close C:\book.ps
    )");
}

TEST_F(StageFilesTest, EachNameOfAListingIsAnAction) {
    stage.put_file("C:\\in\\b.pdf");
    stage.put_file("C:\\IN\\a.PDF");
    stage.put_file("C:\\in\\below\\c.pdf");
    const auto listing = world.files.list("C:\\in\\*.pdf");
    while (listing->next()) {
    }
    EXPECT_EQ(stage.actions(), 4);
    expect_journal(R"(
        list C:\in\*.pdf
        next file -> a.PDF
        next file -> b.pdf
        next file -> none
    )");
}

TEST_F(StageFilesTest, AListingNamesThemFromTheirTimeOnUntilTheyAreDeleted) {
    stage.put_file("C:\\a.pdf");
    stage.put_file("C:\\b.pdf");
    stage.files["C:\\c.pdf"].appears_at = 1000;
    const auto listing = world.files.list("C:\\*");
    EXPECT_EQ(listing->next(), "a.pdf");
    world.files.remove("C:\\b.pdf");
    world.clock.sleep(1000);
    EXPECT_EQ(listing->next(), "c.pdf");
}

TEST_F(StageFilesTest, RealOnesAreListedUntilTheyAreDeletedOnStage) {
    stage.real_length = [](const std::string&) { return std::optional<std::int64_t>(7); };
    stage.real_names = [](const std::string& pattern) {
        return pattern == "C:\\*.doc" ? std::vector<std::string>{"a.doc", "b.doc"}
                                      : std::vector<std::string>();
    };
    world.files.remove("C:\\a.doc");
    const auto listing = world.files.list("C:\\*.doc");
    EXPECT_EQ(listing->next(), "b.doc");
    EXPECT_EQ(listing->next(), std::nullopt);
}

// Printers.

TEST_F(StagePrintersTest, TheDefaultOneFollowsTheProfile) {
    EXPECT_EQ(world.printers.default_printer(), "Office printer");
    world.printers.write_profile_entry("windows", "Device", "Adobe PDF,winspool,Ne00:");
    world.printers.default_printer();
    stage.profile.clear();
    world.printers.default_printer();
    expect_journal(R"(
        default printer -> Office printer
        write profile [windows] Device = Adobe PDF,winspool,Ne00:
        default printer -> Adobe PDF
        default printer -> none
    )");
}

TEST_F(StagePrintersTest, TheDefaultOneOfWindows95IsThatWhichHasTheAttribute) {
    stage.printers["Adobe PDF"] = {"Adobe PDF", "LPT1:", 0, 0, 0};
    const PrinterHandle printer = world.printers.open_printer("Adobe PDF");
    PrinterInfo info = *world.printers.printer_info(printer);
    world.printers.set_printer_info(printer, info);
    EXPECT_EQ(world.printers.default_printer(), "Office printer");
    info.attributes = 4;
    world.printers.set_printer_info(printer, info);
    EXPECT_EQ(world.printers.default_printer(), "Adobe PDF");
}

TEST_F(StagePrintersTest, ThereIsNoDefaultOneWhenAskingFails) {
    stage.fail_action(1, Error(RuntimeError::permission_denied));
    EXPECT_EQ(world.printers.default_printer(), "");
    EXPECT_EQ(world.printers.default_printer(), "Office printer");
}

// Time.

TEST_F(StageTime, PassesOnlyWhereSomethingSleeps) {
    EXPECT_EQ(world.clock.seconds_since_midnight(), 0);
    world.clock.pump_messages();
    EXPECT_EQ(world.clock.seconds_since_midnight(), 0);
    world.clock.sleep(1500);
    world.clock.settle(1000);
    EXPECT_EQ(world.clock.seconds_since_midnight(), 2.5F);
}

TEST_F(StageTime, PumpingTakesTimeWhenATestSaysSo) {
    stage.pump_takes = 100;
    world.clock.pump_messages();
    EXPECT_EQ(stage.now, 100U);
}

TEST_F(StageTime, TheTimerStartsAgainAtMidnight) {
    stage.midnight_offset_seconds = 86399;
    world.clock.sleep(3000);
    EXPECT_EQ(world.clock.seconds_since_midnight(), 2);
}

// Windows and programs.

TEST_F(StageWindowsTest, AreFoundByCaptionInAnyCaseFromTheirTimeOnUntilTheyAreClosed) {
    stage.windows["Adobe Acrobat - [Report.pdf]"] = 1000;
    const auto look = [&] { return world.windows.find_window("adobe acrobat - [report.pdf]"); };
    EXPECT_EQ(look(), 0);
    world.clock.sleep(1000);
    world.windows.close_window(look(), "0");
    EXPECT_EQ(look(), 0);
    expect_journal(R"(
        find window "adobe acrobat - [report.pdf]" -> none
        sleep 1000 ms
        find window "adobe acrobat - [report.pdf]" -> found
        send WM_CLOSE (0, "0") to "Adobe Acrobat - [Report.pdf]"
        find window "adobe acrobat - [report.pdf]" -> none
    )");
}

TEST_F(StageWindowsTest, KeysAreToldAndKept) {
    stage.fail_action(3, Error(RuntimeError::permission_denied));
    world.windows.type_text("http://localhost/");
    world.windows.press_enter();
    run([&] { world.windows.type_text("lost"); });
    EXPECT_EQ(stage.typed, "http://localhost/\n");
    expect_journal(R"(
        type "http://localhost/"
        press Enter
        type "lost" -> fails
        raise 70 from : Permission denied
    )");
}

TEST_F(StageProgramsTest, OnlyThoseThatAreThereStart) {
    stage.programs = {"C:\\s\\a.exe"};
    std::string heard;
    stage.when_program_starts([&](const std::string& line) { heard += "first " + line + "\n"; });
    stage.when_program_starts([&](const std::string& line) { heard += "second " + line + "\n"; });
    world.programs.start("C:\\s\\a.exe open~Edit~", WindowStyle::hidden);
    EXPECT_EQ(heard, "first C:\\s\\a.exe open~Edit~\nsecond C:\\s\\a.exe open~Edit~\n");
    run([&] { world.programs.start("C:\\s\\a.exex", WindowStyle::hidden); });
    expect_journal(R"(
        start (hidden) C:\s\a.exe open~Edit~
        start (hidden) C:\s\a.exex
        raise 53 from : File not found
    )");
}

// The registry.

TEST_F(StageRegistryTest, KeysAndNamesAreFoundInAnyCase) {
    stage.set_registry_text("HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe", "Name", "x");
    RegistryKey opened = 0;
    EXPECT_EQ(world.registry.open_key(hkey_local_machine, "software\\ADOBE", 1, opened), registry_success);
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    EXPECT_EQ(world.registry.query_size(opened, "nAME", type, size), registry_success);
    EXPECT_EQ(type, reg_string);
    EXPECT_EQ(size, 2U);
}

TEST_F(StageRegistryTest, AKeyExistsWhenOneBelowItDoes) {
    stage.registry["HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe\\Acrobat"];
    RegistryKey opened = 0;
    EXPECT_EQ(world.registry.open_key(hkey_local_machine, "SOFTWARE\\Adobe", 1, opened), registry_success);
    EXPECT_EQ(world.registry.open_key(hkey_local_machine, "SOFTWARE\\Ado", 1, opened), registry_not_found);
    EXPECT_EQ(world.registry.open_key(hkey_current_user, "SOFTWARE\\Adobe", 1, opened), registry_not_found);
}

TEST_F(StageRegistryTest, AClosedKeyCannotBeClosedAgain) {
    RegistryKey opened = 0;
    world.registry.create_key(hkey_current_user, "Software\\Foliant", 1, opened);
    EXPECT_EQ(world.registry.close_key(opened), registry_success);
    EXPECT_NE(world.registry.close_key(opened), registry_success);
}

TEST_F(StageRegistryTest, ATextThatDoesNotEndWithANulStaysAsItIs) {
    RegistryKey key = 0;
    world.registry.create_key(hkey_current_user, "Software\\Foliant", 1, key);
    world.registry.set_value(key, "Name", reg_string, "abc");
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    EXPECT_EQ(world.registry.query_size(key, "Name", type, size), registry_success);
    EXPECT_EQ(size, 3U);
}

TEST_F(StageRegistryTest, WhatWasWrittenIsRead) {
    RegistryKey key = 0;
    world.registry.create_key(hkey_current_user, "Software\\Foliant", 1, key);
    world.registry.set_value(key, "Name", reg_binary, "abc");
    std::string data(3, '\0');
    EXPECT_EQ(world.registry.query_data(key, "Name", data), registry_success);
    EXPECT_EQ(data, "abc");
}

}  // namespace
}  // namespace foliant::platform::stage
