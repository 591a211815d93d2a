#include <gtest/gtest.h>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/built_module.h"
#include "hosts/noting_machine.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/process/host_process.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::access {
namespace {

using automation::named;
using automation::Value;
using office::test::PdfReader;

const Module& access_module() {
    static const Module& module = tests::built_module(ACCESS_MODULE);
    return module;
}

std::string database(const std::string& name) {
    return (std::filesystem::path(ACCESS_DATABASES) / name).string();
}

class AccessHost : public testing::Test {
  protected:
    AccessHost() { machine.answer = output(); }

    std::string output() const { return (folder / "out.pdf").string(); }

    void open(const std::string& name, const std::string& password = "") {
        access.call("OpenCurrentDatabase",
                    {named("filepath", database(name)), named("bstrPassword", password)});
    }

    void choose(std::int32_t printer) {
        access.set_reference("Printer", access.get("Printers").get("Item", {printer}));
    }

    /// Prints on the PDF printer, as the member does.
    PdfReader print(const std::string& report, const std::string& filter = "",
                    const std::string& condition = "") {
        choose(1);
        access.get("DoCmd").call("OpenReport", {report, std::int16_t{0}, filter, condition, std::int16_t{1}});
        access.get("DoCmd").call("Close", {std::int16_t{3}, report, std::int16_t{2}});
        return PdfReader(output());
    }

    static std::string whole_text(const PdfReader& pdf) {
        std::string text;
        for (int page = 1; page <= pdf.pages(); ++page)
            text += pdf.text(page) + " ";
        return text;
    }

    std::string failure_of(const std::string& report, const std::string& filter = "",
                           const std::string& condition = "") {
        return tests::failure([&] { print(report, filter, condition); });
    }

    tests::ScratchFolder folder;
    tests::NotingMachine machine;
    process::HostProcess host{{"Access", "mdbtools", access_module}, machine};
    Value access = host.create("Access.Application");
};

TEST_F(AccessHost, PrintersCanBeGoneThrough) {
    std::string names;
    const auto printers = access.get("Printers").enumerate();
    while (const auto printer = printers->next())
        names += *printer->get("DeviceName").if_holds<std::string>() + "/";
    EXPECT_EQ(names, "Adobe PDF/Office/");
    EXPECT_EQ(access.get("Printer").get("DeviceName"), Value("Office"));
    choose(1);
    EXPECT_EQ(access.get("Printer").get("DeviceName"), Value("Adobe PDF"));
}

TEST_F(AccessHost, ATableIsPrintedWithItsTitleHeadingsAndPageNumbers) {
    open("shop.mdb");
    const PdfReader pdf = print("orders");
    EXPECT_EQ(pdf.title(), "Orders");
    ASSERT_GT(pdf.pages(), 3);
    EXPECT_EQ(pdf.size(1), "612 x 792");
    EXPECT_TRUE(pdf.text(1).starts_with("Orders / OrderNoCustomerArticlePiecesPrice / 1001Article 000.00 / "))
        << pdf.text(1);
    EXPECT_TRUE(pdf.text(2).starts_with("OrderNoCustomerArticlePiecesPrice / ")) << pdf.text(2);
    EXPECT_NE(pdf.text(2).find("Page 2 of " + std::to_string(pdf.pages())), std::string::npos) << pdf.text(2);
    EXPECT_EQ(machine.notes.at(0), "dialog Save PDF File As: Orders.pdf");
    EXPECT_EQ(machine.notes.at(1).substr(0, 7), "window ");
}

TEST_F(AccessHost, FieldsAreShownAsTheyWereDeclared) {
    open("shop.mdb");
    const std::string text = whole_text(print("Customers"));
    for (const char* piece : {"Company", "1996-07-04", "2001-12-31 12:00:00", "18:00:00", "1234.50", "-0.50",
                              "Yes", "No", "25.00%", "(binary data, 5 KB)", "first line", "Łódź Export"})
        EXPECT_NE(text.find(piece), std::string::npos) << piece << " in " << text;
}

TEST_F(AccessHost, ALongTextGoesOnOnTheNextPages) {
    open("shop.mdb");
    const PdfReader pdf = print("Customers", "", "[No] = 2");
    const std::string text = whole_text(pdf);
    for (int i = 0; i < 2000; ++i)
        ASSERT_NE(text.find("word" + std::to_string(i)), std::string::npos) << i;
    EXPECT_GT(pdf.pages(), 1);
}

TEST_F(AccessHost, ColumnsThatDoNotFitGoOnAcross) {
    open("shop.mdb");
    const PdfReader pdf = print("Wide");
    EXPECT_EQ(pdf.size(1), "792 x 612");
    ASSERT_GT(pdf.pages(), 1);
    const std::string text = whole_text(pdf);
    for (int i = 0; i < 30; ++i) {
        EXPECT_NE(text.find("Column " + std::to_string(i)), std::string::npos) << i;
        EXPECT_NE(text.find("value2x" + std::to_string(i)), std::string::npos) << i;
    }
    // A record's fields stand on one level.
    EXPECT_EQ(pdf.place(1, "value1x0").top, pdf.place(1, "value1x1").top);
    EXPECT_EQ(pdf.place(1, "value1x0").top, pdf.place(2, "value1x").top);
}

TEST_F(AccessHost, FilterAndConditionBothChoose) {
    open("shop.accdb");
    std::string text = print("Customers", "", "Active = True And City Like 'B*'").text(1);
    EXPECT_NE(text.find("Alfreds"), std::string::npos);
    EXPECT_NE(text.find("Essen"), std::string::npos);
    EXPECT_EQ(text.find("Export"), std::string::npos);
    text = print("Customers", "Berliners", "Credit > 0").text(1);
    EXPECT_NE(text.find("Alfreds"), std::string::npos);
    EXPECT_EQ(text.find("Essen"), std::string::npos);
    EXPECT_NE(print("Customers", "", "False").text(1).find("There are no records."), std::string::npos);
}

TEST_F(AccessHost, QueriesAndTheQueryOfAReportArePrinted) {
    open("shop.mdb");
    const std::string totals = print("Totals").text(1);
    EXPECT_NE(totals.find("Alfreds Futterkiste6682650.00150"), std::string::npos) << totals;
    EXPECT_NE(totals.find("Łódź Export1"), std::string::npos) << totals;
    const std::string active = print("active customers").text(1);
    EXPECT_TRUE(active.starts_with("Active customers / Company / Alfreds Futterkiste / Königlich Essen / "))
        << active;
}

TEST_F(AccessHost, NamesThatAreNotThereAreToldWithThoseThatAre) {
    open("shop.mdb");
    const std::string there =
        " Its tables are \"Customers\", \"Empty\", \"Orders\", \"Wide\". Its queries are \"All orders\", "
        "\"Asks\", \"Berliners\", \"Removes\", \"Totals\".";
    EXPECT_EQ(failure_of("Turnover"), "2103 There is no report, table or query \"Turnover\" in " +
                                          database("shop.mdb") + "." + there);
    EXPECT_EQ(failure_of("Styled"),
              "2103 The report \"Styled\" of " + database("shop.mdb") +
                  " names its records where only Access itself reads it. Give the name of the table "
                  "or query that it shows." +
                  there);
    EXPECT_NE(failure_of("Elsewhere").find("is linked: its records are in another file"), std::string::npos);
    EXPECT_NE(failure_of("Orders", "Nobody").find("2103 There is no query \"Nobody\""), std::string::npos);
    EXPECT_EQ(
        failure_of("Orders", "Totals"),
        "3075 The query \"Totals\" cannot be used as a filter: it does more than to choose records by a condition.");
    EXPECT_FALSE(std::filesystem::exists(output()));
}

TEST_F(AccessHost, ConditionsThatAreNotUnderstoodAreErrors) {
    open("shop.mdb");
    EXPECT_EQ(
        failure_of("Orders", "", "Pieces ~ 3"),
        "3075 The condition \"Pieces ~ 3\" cannot be used: a sign is not understood, at <~ 3> in <Pieces ~ 3>.");
    EXPECT_NE(failure_of("Asks").find(
                  "3075 The query \"Asks\" cannot be worked out: there is no column [How many?]"),
              std::string::npos);
    EXPECT_NE(failure_of("Removes").find("it changes data"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(output()));
}

TEST_F(AccessHost, PrintsOnAQueueWithoutAsking) {
    open("shop.mdb");
    choose(2);
    access.get("DoCmd").call("OpenReport",
                             {"Empty", named("View", std::int16_t{0}), named("WindowMode", std::int16_t{1})});
    EXPECT_EQ(machine.notes, std::vector<std::string>{"print Empty on Office, pages 1"});
}

TEST_F(AccessHost, ADialogThatIsCancelledPrintsNothing) {
    open("shop.mdb");
    machine.answer.clear();
    EXPECT_EQ(failure_of("Empty"),
              "2501 Empty was not printed: the dialog \"Save PDF File As\" was closed without a file name.");
}

TEST_F(AccessHost, ADatabaseThatCannotBeOpenedSaysWhy) {
    const auto failure = [&](const std::string& name, const std::string& password = "") {
        return tests::failure([&] { open(name, password); });
    };
    EXPECT_EQ(failure("locked.mdb"), "3031 Cannot open " + database("locked.mdb") + ": it needs a password.");
    EXPECT_EQ(failure("empty.mdb"), "3343 Cannot open " + database("empty.mdb") + ": it is empty.");
    EXPECT_EQ(failure("nowhere.mdb"),
              "3024 " + database("nowhere.mdb") + " does not exist. Check the name and the folder.");
    EXPECT_EQ(failure("../databases"),
              "3343 " + database("../databases") + " is no database: it is a folder.");
    EXPECT_EQ(failure("locked.mdb", "open sesame"), "no failure");
}

TEST_F(AccessHost, TheOrderOfCallsIsAccesss) {
    EXPECT_EQ(failure_of("Orders"), "2467 No database is open.");
    open("shop.mdb");
    EXPECT_EQ(tests::error_number([&] { open("shop.mdb"); }), 7867);
    access.call("CloseCurrentDatabase");
    access.call("CloseCurrentDatabase");
    open("shop.accdb");
    EXPECT_EQ(tests::error_number([&] {
                  access.get("DoCmd").call("OpenReport", {"Orders", std::int16_t{2}});
              }),
              445);
    EXPECT_EQ(tests::error_number([&] { access.set_reference("Printer", access.get("Printers")); }), 13);
    access.call("Quit");
    access.call("Quit");
    EXPECT_EQ(failure_of("Orders"), "462 Access has been quit.");
}

}  // namespace
}  // namespace foliant::hosts::access
