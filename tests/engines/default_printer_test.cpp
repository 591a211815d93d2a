#include "engines/default_printer.h"

#include <gtest/gtest.h>

#include "support/fault_cases.h"
#include "support/staged_session.h"

namespace foliant::engines {
namespace {

using platform::stage::Stage;
using session::Session;

class DefaultPrinter : public tests::StagedSession {
  protected:
    void set(const std::string& name) {
        stage.clear_journal();
        SetDefPrinter(session(), name);
    }
    void put_port(const std::string& printer, const std::string& entry) {
        stage.profile["PrinterPorts"][printer] = entry;
    }
};

TEST_F(DefaultPrinter, IsWrittenIntoTheProfileAndAnnouncedOnce) {
    put_port("Adobe PDF", "winspool,Ne00:,15,45");
    set("Adobe PDF");
    expect_journal(R"(
        platform identifier -> 2
        profile [PrinterPorts] Adobe PDF -> winspool,Ne00:,15,45
        write profile [windows] Device = Adobe PDF,winspool,Ne00:
        tell all windows that profile [windows] has changed
    )");
}

TEST_F(DefaultPrinter, StaysWhenThePrinterIsUnknown) {
    set("Nowhere");
    expect_journal(R"(
        platform identifier -> 2
        profile [PrinterPorts] Nowhere -> nothing
    )");
}

TEST_F(DefaultPrinter, StaysForAnEmptyNameWhichIsLookedUpAllTheSame) {
    set("");
    expect_journal(R"(
        platform identifier -> 2
        profile [PrinterPorts]  -> nothing
    )");
}

TEST_F(DefaultPrinter, StaysWhenTheEntryHasNoTimeoutsNoDriverOrNoPort) {
    for (const char* entry : {"winspool,Ne00:", "winspool", ",Ne00:,15,45", "winspool,,15,45", ",,"}) {
        put_port("Odd", entry);
        set("Odd");
        EXPECT_EQ(stage.lines().size(), 2U) << entry;
    }
}

TEST_F(DefaultPrinter, KeepsANameThatHoldsACommaAsItIs) {
    put_port("Office, 2nd floor", "winspool,Ne01:,15,45");
    set("Office, 2nd floor");
    EXPECT_EQ(stage.profile["windows"]["Device"], "Office, 2nd floor,winspool,Ne01:");
}

class DefaultPrinterOfWindows95 : public DefaultPrinter {
  protected:
    DefaultPrinterOfWindows95() {
        stage.platform_identifier = 1;
        stage.printers["Adobe PDF"] = {"Adobe PDF", "LPT1:", 0x241, 15000, 45000};
    }
};

TEST_F(DefaultPrinterOfWindows95, HasExactlyTheDefaultFlagAndKeepsTheRest) {
    set("Adobe PDF");
    expect_journal(R"(
        platform identifier -> 1
        open printer Adobe PDF
        get printer Adobe PDF
        set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
        close printer Adobe PDF
    )");
}

TEST_F(DefaultPrinterOfWindows95, StaysForAnEmptyNameWithoutAsking) {
    set("");
    expect_journal("platform identifier -> 1\n");
}

TEST_F(DefaultPrinterOfWindows95, StaysWhenThePrinterCannotBeOpened) {
    set("Nowhere");
    expect_journal(R"(
        platform identifier -> 1
        open printer Nowhere -> refused
    )");
}

TEST_F(DefaultPrinterOfWindows95, StaysOpenAfterAFailure) {
    for (const long failing : {2, 3}) {
        stage.clear_journal();
        stage.fail_action(failing, automation::Error(automation::RuntimeError::permission_denied));
        SetDefPrinter(session(), "Adobe PDF");
        EXPECT_EQ(stage.actions(), failing) << "nothing is done after it";
    }
}

TEST_F(DefaultPrinter, SaysNothingOfAnyFailure) {
    put_port("Adobe PDF", "winspool,Ne00:,15,45");
    stage.printers["Adobe PDF"] = {"Adobe PDF", "LPT1:", 0, 15000, 45000};
    for (const std::uint32_t family : {1U, 2U})
        for (long failing = 1; failing <= 4; ++failing) {
            stage.platform_identifier = family;
            stage.clear_journal();
            stage.fail_action(failing, automation::Error(automation::RuntimeError::permission_denied));
            EXPECT_NO_THROW(SetDefPrinter(session(), "Adobe PDF"));
        }
}

// Switching it for one job.

class SwitchedPrinter : public DefaultPrinter {
  protected:
    SwitchedPrinter() {
        put_port("HP", "winspool,Ne01:,15,45");
        put_port("Adobe PDF", "winspool,Ne00:,15,45");
        stage.profile["windows"]["Device"] = "HP,winspool,Ne01:";
        session();
    }

    PrinterSwitch printer{session()};
};

TEST_F(SwitchedPrinter, IsRememberedBeforeAndPutBackAfterTheJob) {
    printer.switch_to("Adobe PDF");
    stage.note("the job");
    printer.restore();
    expect_journal(R"(
        default printer -> HP
        platform identifier -> 2
        profile [PrinterPorts] Adobe PDF -> winspool,Ne00:,15,45
        write profile [windows] Device = Adobe PDF,winspool,Ne00:
        tell all windows that profile [windows] has changed
        the job
        platform identifier -> 2
        profile [PrinterPorts] HP -> winspool,Ne01:,15,45
        write profile [windows] Device = HP,winspool,Ne01:
        tell all windows that profile [windows] has changed
    )");
}

TEST_F(SwitchedPrinter, ThatIsNotThereLeavesTheDefaultAndIsRestoredAllTheSame) {
    printer.switch_to("Nowhere");
    printer.restore();
    expect_journal(R"(
        default printer -> HP
        platform identifier -> 2
        profile [PrinterPorts] Nowhere -> nothing
        platform identifier -> 2
        profile [PrinterPorts] HP -> winspool,Ne01:,15,45
        write profile [windows] Device = HP,winspool,Ne01:
        tell all windows that profile [windows] has changed
    )");
}

TEST_F(SwitchedPrinter, IsPutBackOnceAndOnlyAfterASwitch) {
    printer.restore();
    EXPECT_EQ(stage.journal(), "");
    printer.switch_to("Adobe PDF");
    printer.restore();
    stage.clear_journal();
    printer.restore();
    EXPECT_EQ(stage.journal(), "");
}

TEST_F(SwitchedPrinter, StaysWhereNobodyPutsItBack) {
    { PrinterSwitch(session()).switch_to("Adobe PDF"); }
    EXPECT_EQ(stage.profile["windows"]["Device"], "Adobe PDF,winspool,Ne00:");
}

// Passed over by rule: whatever the system refuses.
const tests::ServiceFaults switched_for_a_job(
    "PrinterSwitchedForAJob",
    [](Stage& stage) {
        stage.profile["PrinterPorts"]["HP"] = "winspool,Ne01:,15,45";
        stage.profile["windows"]["Device"] = "HP,winspool,Ne01:";
    },
    [](const Session& session) {
        PrinterSwitch printer(session);
        printer.switch_to("Adobe PDF");
        printer.restore();
    },
    {.report = R"(
    fails: default printer
        go on, but
        - profile [PrinterPorts] HP -> winspool,Ne01:,15,45
        - write profile [windows] Device = HP,winspool,Ne01:
        - tell all windows that profile [windows] has changed
        + profile [PrinterPorts]  -> nothing
    fails: profile [PrinterPorts] Adobe PDF
        go on, but
        - write profile [windows] Device = Adobe PDF,winspool,Ne00:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = Adobe PDF,winspool,Ne00:
    fails: tell all windows that profile [windows] has changed
        go on
    fails: profile [PrinterPorts] HP
        go on, but
        - write profile [windows] Device = HP,winspool,Ne01:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = HP,winspool,Ne01:
    fails: tell all windows that profile [windows] has changed
        go on
)"});

}  // namespace
}  // namespace foliant::engines
