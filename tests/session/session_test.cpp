#include "session/session.h"

#include <gtest/gtest.h>

#include "session/errors.h"
#include "support/error_of.h"
#include "support/staged_session.h"

namespace foliant::session {
namespace {

using automation::Error;
using automation::RuntimeError;

constexpr const char* version_key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\AcroExch.App\\AcrobatVersion";
constexpr const char* printer_key =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Adobe\\Acrobat Distiller\\6.0\\PrinterName";

/// What a session reads when it is made, on a machine where nothing is registered until a test says so.
class StartUp : public testing::Test {
  protected:
    std::string printer_name_with(const std::string& acrobat_version) {
        stage.set_registry_text(version_key, "", acrobat_version);
        return Session(stage.platform(), events).PrinterName();
    }

    platform::stage::Stage stage;
    tests::EventsInJournal events{stage};
};

TEST_F(StartUp, ReadsTheVersionThenThePrinterAndTouchesNothingElse) {
    stage.set_registry_text(version_key, "", "6.0");
    stage.set_registry_text(printer_key, "", "PDF by Distiller");
    { const Session session(stage.platform(), events); }
    tests::expect_journal(stage, R"(
        open key HKEY_LOCAL_MACHINE\SOFTWARE\Classes\AcroExch.App\AcrobatVersion (access 2000F)
        read value "" of HKEY_LOCAL_MACHINE\SOFTWARE\Classes\AcroExch.App\AcrobatVersion -> type 1 6.0\0
        close key HKEY_LOCAL_MACHINE\SOFTWARE\Classes\AcroExch.App\AcrobatVersion
        open key HKEY_LOCAL_MACHINE\SOFTWARE\Adobe\Acrobat Distiller\6.0\PrinterName (access 2000F)
        read value "" of HKEY_LOCAL_MACHINE\SOFTWARE\Adobe\Acrobat Distiller\6.0\PrinterName -> type 1 PDF by Distiller\0
        close key HKEY_LOCAL_MACHINE\SOFTWARE\Adobe\Acrobat Distiller\6.0\PrinterName
    )");
}

TEST_F(StartUp, WithoutAcrobatTheVersionIsEmptyAndThePrinterIsDistiller) {
    const Session session(stage.platform(), events);
    EXPECT_EQ(session.AcrobatVersion(), "");
    EXPECT_EQ(session.PrinterName(), "Acrobat Distiller");
    tests::expect_journal(stage, R"(
        open key HKEY_LOCAL_MACHINE\SOFTWARE\Classes\AcroExch.App\AcrobatVersion (access 2000F) -> not found
        open key HKEY_LOCAL_MACHINE\SOFTWARE\Adobe\Acrobat Distiller\6.0\PrinterName (access 2000F) -> not found
    )");
}

TEST_F(StartUp, AKeyWithoutAnUnnamedValueCountsAsEmpty) {
    stage.set_registry_text(version_key, "Other", "6.0");
    const Session session(stage.platform(), events);
    EXPECT_EQ(session.AcrobatVersion(), "");
}

TEST_F(StartUp, OnlyTheExactVersionSixPointZeroHasThePrinterAdobePdf) {
    EXPECT_EQ(printer_name_with("6.0"), "Adobe PDF");
    for (const char* version : {"7.0", "6.01", "6", "06.0", " 6.0", "6.0 ", "5.0", ""})
        EXPECT_EQ(printer_name_with(version), "Acrobat Distiller") << '"' << version << '"';
}

TEST_F(StartUp, ARegisteredPrinterIsKeptWhateverTheVersion) {
    stage.set_registry_text(printer_key, "", " My printer ");
    for (const char* version : {"6.0", "7.0", ""})
        EXPECT_EQ(printer_name_with(version), " My printer ");
}

TEST_F(StartUp, ARefusedReadIsTakenForTheValue) {
    // The refusal comes as a text in place of the value, and start-up asks no further.
    stage.set_registry_text(version_key, "", "6.0");
    stage.registry_refusals[""] = platform::registry_access_denied;
    const Session session(stage.platform(), events);
    EXPECT_EQ(session.AcrobatVersion(), "Access Denied");
}

TEST_F(StartUp, TemporaryFilesGoBesideTheLibraryWithOneSeparator) {
    stage.library_folder = "C:\\Program Files\\Foliant";
    EXPECT_EQ(Session(stage.platform(), events).TempFilePath(), "C:\\Program Files\\Foliant\\");
    stage.library_folder = "C:\\";
    EXPECT_EQ(Session(stage.platform(), events).TempFilePath(), "C:\\");
}

TEST_F(StartUp, TheSeparatorIsThePlatformsOwn) {
    stage.separator = '/';
    stage.library_folder = "/usr/lib/foliant";
    EXPECT_EQ(Session(stage.platform(), events).TempFilePath(), "/usr/lib/foliant/");
}

TEST_F(StartUp, NeverRaisesWhateverFails) {
    stage.set_registry_text(version_key, "", "6.0");
    stage.set_registry_text(printer_key, "", "Adobe PDF");
    for (long k = 1; k <= 6; ++k) {
        stage.clear_journal();
        stage.fail_action(k, Error(RuntimeError::permission_denied));
        EXPECT_NO_THROW({ const Session session(stage.platform(), events); }) << "action " << k;
    }
}

TEST_F(StartUp, NothingHappensWhenTheSessionGoes) {
    {
        const Session session(stage.platform(), events);
        stage.clear_journal();
    }
    EXPECT_EQ(stage.journal(), "");
}

class TempFilePath : public tests::StagedSession {
  protected:
    TempFilePath() { stage.folders = {"C:", "C:\\Temp"}; }

    std::string after_setting(const std::string& folder) {
        session().set_TempFilePath(folder);
        return session().TempFilePath();
    }
};

TEST_F(TempFilePath, ANewFolderIsMade) {
    EXPECT_EQ(after_setting("C:\\Temp\\pdf"), "C:\\Temp\\pdf\\");
    expect_journal("make folder C:\\Temp\\pdf");
    EXPECT_TRUE(stage.folders.contains("C:\\Temp\\pdf"));
}

TEST_F(TempFilePath, AnExistingFolderIsTaken) {
    EXPECT_EQ(after_setting("C:\\Temp"), "C:\\Temp\\");
}

TEST_F(TempFilePath, ASeparatorAtTheEndIsNotDoubled) {
    EXPECT_EQ(after_setting("C:\\Temp\\"), "C:\\Temp\\");
}

TEST_F(TempFilePath, AFolderWhoseParentIsMissingLeavesTheFormerValue) {
    const std::string former = session().TempFilePath();
    EXPECT_EQ(after_setting("C:\\none\\pdf"), former);
    EXPECT_EQ(after_setting(""), former);
}

TEST_F(TempFilePath, AnyRefusalButThatOfAnExistingFolderLeavesTheFormerValue) {
    const std::string former = session().TempFilePath();
    stage.fail_action(1, Error(RuntimeError::permission_denied));
    EXPECT_EQ(after_setting("C:\\Temp\\pdf"), former);
}

TEST_F(TempFilePath, ARefusalOfAnExistingFolderIsKnownByItsNumber) {
    session();
    stage.fail_action(1, Error(RuntimeError::path_file_access));
    EXPECT_EQ(after_setting("D:\\unreachable"), "D:\\unreachable\\");
}

class FileExists : public tests::StagedSession {};

TEST_F(FileExists, AsksForTheLengthOnly) {
    stage.put_file("C:\\in\\a.ps");
    EXPECT_TRUE(session().FileExists("C:\\in\\a.ps"));
    expect_journal("length C:\\in\\a.ps -> 1000");
}

TEST_F(FileExists, AnEmptyFileExists) {
    stage.files["C:\\in\\empty.ps"].lengths = {0};
    EXPECT_TRUE(session().FileExists("C:\\in\\empty.ps"));
}

TEST_F(FileExists, NeitherAMissingFileNorAnEmptyPathNorAFolderExists) {
    stage.folders = {"C:\\in"};
    EXPECT_FALSE(session().FileExists("C:\\in\\none.ps"));
    EXPECT_FALSE(session().FileExists(""));
    EXPECT_FALSE(session().FileExists("C:\\in"));
}

TEST_F(FileExists, AnyFailureMeansThatItDoesNot) {
    stage.put_file("C:\\in\\a.ps");
    session();
    stage.fail_action(1, Error(RuntimeError::permission_denied));
    EXPECT_FALSE(session().FileExists("C:\\in\\a.ps"));
}

class RandomFileName : public tests::StagedSession {};

TEST_F(RandomFileName, IsOneToEightDigitsWithoutLeadingZero) {
    session();
    for (std::uint64_t seed = 0; seed < 20000; ++seed) {
        stage.seeds.push_back(seed);
    }
    for (std::uint64_t seed = 0; seed < 20000; ++seed) {
        const std::string name = session().RandomFileName();
        ASSERT_TRUE(name.size() >= 1 && name.size() <= 8) << name << " from seed " << seed;
        ASSERT_EQ(name.find_first_not_of("0123456789"), std::string::npos) << name;
        ASSERT_NE(name.front(), '0') << name << " from seed " << seed;
        if (seed % 1000 == 0) stage.clear_journal();
    }
}

TEST_F(RandomFileName, RunsFromOneToTheLastNumberOfEightDigitsThatASingleReaches) {
    // Seeds of the smallest and of the largest of the numbers that are drawn, which are rare.
    stage.seeds = {5322908, 3138459};
    EXPECT_EQ(session().RandomFileName(), "1");
    EXPECT_EQ(session().RandomFileName(), "99999994");
}

TEST_F(RandomFileName, ComesFromTheClockAlone) {
    stage.seeds = {7, 7, 8};
    const std::string first = session().RandomFileName();
    EXPECT_EQ(session().RandomFileName(), first);
    EXPECT_NE(session().RandomFileName(), first);
}

TEST_F(RandomFileName, ATakenNameIsDrawnAgainFromANewSeed) {
    stage.seeds = {7, 7, 8};
    const std::string taken = session().RandomFileName();
    stage.names_in_current_folder = {taken};
    stage.clear_journal();
    const std::string name = session().RandomFileName();
    EXPECT_NE(name, taken);
    expect_journal("look for " + taken + " in the current folder\nlook for " + name +
                   " in the current folder");
}

TEST_F(RandomFileName, OnlyTheCurrentFolderIsLookedAt) {
    stage.seeds = {7, 7};
    const std::string name = session().RandomFileName();
    stage.put_file(session().TempFilePath() + name);
    EXPECT_EQ(session().RandomFileName(), name);
}

TEST_F(RandomFileName, NeverRaises) {
    session();
    stage.fail_action(1, Error(RuntimeError::permission_denied));
    EXPECT_NE(session().RandomFileName(), "");
}

TEST_F(RandomFileName, MakesTemporaryPathsByPlainConcatenation) {
    stage.seeds = {7, 7};
    stage.folders = {"C:", "C:\\Temp"};
    session().set_TempFilePath("C:\\Temp");
    const std::string name = session().RandomFileName();
    EXPECT_EQ(session().temporary_file(".ps"), "C:\\Temp\\" + name + ".ps");
}

class GetSpecialFolder : public tests::StagedSession {};

TEST_F(GetSpecialFolder, IsTheTextBeforeTheFirstNul) {
    // The stage fills the whole buffer, as the shell does.
    EXPECT_EQ(session().GetSpecialFolder(37), "C:\\WINDOWS\\system32");
    expect_journal("special folder 37 (owner 100)");
}

TEST_F(GetSpecialFolder, AnUnknownFolderIsEmpty) {
    EXPECT_EQ(session().GetSpecialFolder(9999), "");
}

TEST_F(GetSpecialFolder, AFailureIsEmpty) {
    session();
    stage.fail_action(1, Error(RuntimeError::permission_denied));
    EXPECT_EQ(session().GetSpecialFolder(37), "");
}

class ErrorTrap : public tests::StagedSession {};

TEST_F(ErrorTrap, KeepsNumberAndDescriptionAndPutsTheTitleInPlaceOfTheSource) {
    run([&] {
        with_error_trap([] { throw Error(-2147352567, "Microsoft Word", "The disk is full."); },
                        [&] { stage.note("clean up"); });
    });
    expect_journal(R"(
        clean up
        raise -2147352567 from Foliant: The disk is full.
    )");
}

TEST_F(ErrorTrap, AFailureInTheCleanUpHidesNothing) {
    run([] {
        with_error_trap([] { throw Error(RuntimeError::file_not_found); },
                        [] { throw Error(RuntimeError::out_of_memory); });
    });
    expect_journal("raise 53 from Foliant: File not found");
}

TEST_F(ErrorTrap, DoesNotCleanUpAfterSuccess) {
    run([&] { with_error_trap([] {}, [&] { stage.note("clean up"); }); });
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(ErrorTrap, TurnsAnyExceptionIntoARunTimeError) {
    run([] { with_error_trap([] { throw std::bad_alloc(); }, [] {}); });
    run([] { with_error_trap([] { throw std::runtime_error("the engine died"); }, [] {}); });
    run([] { with_error_trap([] { throw 1; }, [] {}); });
    expect_journal(R"(
        raise 7 from Foliant: Out of memory
        raise 51 from Foliant: the engine died
        raise 51 from Foliant: Internal error
    )");
}

TEST_F(ErrorTrap, ThatSaysOneSentenceSaysItWithTheComponentsNumberWhateverFailed) {
    run([&] {
        with_error_trap_saying(
            "Can't open file a.pdf.", [] { throw Error(-2147352567, "Acrobat", "The disk is full."); },
            [&] { stage.note("clean up"); });
    });
    expect_journal(R"(
        clean up
        raise -2147467008 from Foliant: Can't open file a.pdf.
    )");
}

TEST_F(ErrorTrap, ThatSaysOneSentenceHidesNothingEitherAndIsSilentAfterSuccess) {
    run([&] {
        with_error_trap_saying(
            "one sentence", [] {}, [&] { stage.note("clean up"); });
        with_error_trap_saying(
            "one sentence", [] { throw std::bad_alloc(); }, [] { throw Error(RuntimeError::disk_full); });
    });
    expect_journal("raise -2147467008 from Foliant: one sentence");
}

TEST_F(ErrorTrap, TheCauseOfItsOneSentenceIsWhatFailed) {
    const Error raised = tests::error_of([] {
        with_error_trap_saying(
            "one sentence", [] { throw Error(429, "Hosts", "Acrobat is not installed"); }, [] {});
    });
    ASSERT_NE(raised.cause(), nullptr);
    EXPECT_EQ(raised.cause()->number(), 429);
    EXPECT_EQ(raised.cause()->source(), "Hosts");
    EXPECT_EQ(raised.cause()->description(), "Acrobat is not installed");
    EXPECT_EQ(&root_cause(raised), raised.cause().get());
}

TEST_F(ErrorTrap, AnErrorThatSpeaksForItselfIsItsOwnRootCause) {
    const Error raised =
        tests::error_of([] { with_error_trap([] { throw Error(RuntimeError::disk_full); }, [] {}); });
    EXPECT_EQ(raised.cause(), nullptr);
    EXPECT_EQ(&root_cause(raised), &raised);
}

TEST_F(ErrorTrap, TheCauseIsKeptWhereOneMemberCallsAnother) {
    const Error raised = tests::error_of([] {
        with_error_trap_saying(
            "the outer sentence",
            [] {
                with_error_trap(
                    [] {
                        with_error_trap_saying(
                            "the inner sentence", [] { throw Error(RuntimeError::disk_full); }, [] {});
                    },
                    [] {});
            },
            [] {});
    });
    EXPECT_EQ(raised.description(), "the outer sentence");
    ASSERT_NE(raised.cause(), nullptr);
    EXPECT_EQ(raised.cause()->description(), "the inner sentence");
    EXPECT_TRUE(root_cause(raised).is(RuntimeError::disk_full));
}

class MissingFile : public tests::StagedSession {};

TEST_F(MissingFile, IsSaidWithThePathAsItWasGiven) {
    run([&] { session().require_file(" C:\\in\\..\\none.doc "); });
    expect_journal(
        "length  C:\\in\\..\\none.doc  -> not found\n"
        "raise -2147467008 from Foliant: File  C:\\in\\..\\none.doc  does not exist.");
}

}  // namespace
}  // namespace foliant::session
