#include "support/fault_cases.h"
#include "support/member_cases.h"

namespace foliant::members {
namespace {

using automation::named;
using platform::stage::Stage;

// It never reports a failure: the former default stays. What there is to know about odd printers is tested
// where the printer is switched, in tests/engines.

const tests::MemberCall usual{.member = "SetDefPrinter", .arguments = {named("strPrinter", "Adobe PDF")}};

const tests::WholeJournal journal(usual, R"(
    platform identifier -> 2
    profile [PrinterPorts] Adobe PDF -> winspool,Ne00:,15,45
    write profile [windows] Device = Adobe PDF,winspool,Ne00:
    tell all windows that profile [windows] has changed
)");

const tests::ParameterProbe parameters(
    {.member = "SetDefPrinter",
     .arrange = [](Stage& stage) { stage.profile["PrinterPorts"]["My printer"] = "winspool,Ne01:,15,45"; },
     .arguments = {named("strPrinter", "My printer")}},
    {.lines_with = {"My printer"}, .expected = R"(
        profile [PrinterPorts] My printer -> winspool,Ne01:,15,45
        write profile [windows] Device = My printer,winspool,Ne01:
    )"});

const tests::MemberFaults faults(usual, {.report = R"(
    fails: profile [PrinterPorts] Adobe PDF
        go on, but
        - write profile [windows] Device = Adobe PDF,winspool,Ne00:
        - tell all windows that profile [windows] has changed
    fails: write profile [windows] Device = Adobe PDF,winspool,Ne00:
    fails: tell all windows that profile [windows] has changed
        go on
)"});

const tests::MemberCall of_windows_95{
    .member = "SetDefPrinter",
    .of = "OfWindows95",
    .arrange =
        [](Stage& stage) {
            stage.platform_identifier = 1;
            stage.printers["Adobe PDF"] = {"Adobe PDF", "LPT1:", 0, 15000, 45000};
        },
    .arguments = {named("strPrinter", "Adobe PDF")}};

const tests::WholeJournal journal_of_windows_95(of_windows_95, R"(
    platform identifier -> 1
    open printer Adobe PDF
    get printer Adobe PDF
    set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
    close printer Adobe PDF
)");

const tests::MemberFaults faults_of_windows_95(of_windows_95, {.report = R"(
    fails: open printer Adobe PDF
        go on, but
        - get printer Adobe PDF
        - set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
        - close printer Adobe PDF
    fails: get printer Adobe PDF
        go on, but
        - set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
        - close printer Adobe PDF
    fails: set printer Adobe PDF: name Adobe PDF, port LPT1:, attributes 4, timeouts 15000 45000
        go on, but
        - close printer Adobe PDF
    fails: close printer Adobe PDF
        go on
)"});

}  // namespace
}  // namespace foliant::members
