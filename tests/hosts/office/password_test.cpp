#include <com/sun/star/beans/NamedValue.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "hosts/office/engine/document_opener.h"
#include "hosts/office/engine/uno_support.h"
#include "hosts/office/excel/excel_error.h"
#include "hosts/office/excel/spreadsheet.h"
#include "hosts/office/excel/workbook_kind.h"
#include "hosts/office/noting_machine.h"
#include "hosts/office/pdf_reader.h"
#include "hosts/office/support.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::office {
namespace {

constexpr const char* password = "Grüße 1";

/// Saves a document under another name with an open password, with the LibreOffice that the engine runs on.
void save_encrypted(const std::filesystem::path& target, const std::string& filter,
                    const std::string& original = "one.docx") {
    test::open(test::document("one.docx"));  // starts the engine
    using Context = css::uno::Reference<css::uno::XComponentContext>;
    void* library = dlopen("libmergedlo.so", RTLD_NOLOAD | RTLD_LAZY);
    ASSERT_NE(library, nullptr);
    auto* context =
        reinterpret_cast<Context (*)()>(dlsym(library, "_ZN10comphelper26getProcessComponentContextEv"));
    const auto document = css::frame::Desktop::create(context())->loadComponentFromURL(
        file_url(test::document(original)), to_uno("_blank"), 0,
        uno_sequence<css::beans::PropertyValue>({uno_argument("Hidden", true)}));
    const css::uno::Reference<css::frame::XStorable> file(document, css::uno::UNO_QUERY_THROW);
    using css::beans::NamedValue;
    const auto office_2007 = uno_sequence<NamedValue>({
        NamedValue(to_uno("CryptoType"), css::uno::Any(to_uno("Standard"))),
        NamedValue(to_uno("OOXPassword"), css::uno::Any(to_uno(password))),
    });
    const bool is_office_2007 = filter.ends_with(" 2007 XML");
    file->storeToURL(file_url(target), uno_sequence<css::beans::PropertyValue>({
                                           uno_argument("FilterName", to_uno(filter)),
                                           is_office_2007 ? uno_argument("EncryptionData", office_2007)
                                                          : uno_argument("Password", to_uno(password)),
                                       }));
    css::uno::Reference<css::util::XCloseable>(document, css::uno::UNO_QUERY_THROW)->close(true);
}

class Password : public testing::TestWithParam<std::pair<const char*, const char*>> {
  protected:
    void SetUp() override {
        path_ = folder_ / ("secret" + std::string(GetParam().first));
        save_encrypted(path_, GetParam().second);
    }

    tests::ScratchFolder folder_;
    std::filesystem::path path_;
};

TEST_P(Password, OpensTheDocument) {
    test::open(path_, password)->export_pdf("", folder_ / "out.pdf");
    EXPECT_EQ(test::PdfReader(folder_ / "out.pdf").text(1), "This is page number 1.");
}

TEST_P(Password, IsAskedForWhenMissing) {
    const auto error = tests::error_of([&] { test::open(path_); });
    EXPECT_EQ(error.number(), 5408);
    EXPECT_EQ(error.description(), path_.string() + " is encrypted. Give its open password.");
}

TEST_P(Password, IsRefusedWhenWrong) {
    const auto error = tests::error_of([&] { test::open(path_, "wrong"); });
    EXPECT_EQ(error.number(), 5408);
    EXPECT_EQ(error.description(), path_.string() +
                                       ": the password is incorrect. Give the open password that "
                                       "belongs to this document.");
}

TEST_P(Password, IsNotTheWritePassword) {
    EXPECT_EQ(tests::error_of([&] { test::open(path_, "", password); }).number(), 5408);
}

INSTANTIATE_TEST_SUITE_P(Formats, Password,
                         testing::Values(std::pair(".docx", "MS Word 2007 XML"),
                                         std::pair(".doc", "MS Word 97"), std::pair(".odt", "writer8")),
                         [](const auto& format) { return std::string(format.param.first).substr(1); });

TEST(PasswordNotNeeded, IsIgnored) {
    EXPECT_EQ(test::open(test::document("one.docx"), "any", "other")->page_count(), 1);
}

class WorkbookPassword : public testing::TestWithParam<std::pair<const char*, const char*>> {
  protected:
    void SetUp() override {
        path_ = folder_ / ("secret" + std::string(GetParam().first));
        save_encrypted(path_, GetParam().second, "sales.xlsx");
    }

    std::vector<std::string> sheets_with(const std::string& open_password) {
        return Spreadsheet(
                   open_in_office(machine_, path_, {open_password, ""}, microsoft_excel, workbook_filter))
            .sheet_names();
    }

    tests::ScratchFolder folder_;
    std::filesystem::path path_;
    test::NotingMachine machine_;
};

TEST_P(WorkbookPassword, OpensTheWorkbook) {
    EXPECT_EQ(sheets_with(password), (std::vector<std::string>{"Sales", "My notes", "Blank"}));
}

TEST_P(WorkbookPassword, IsToldApartFromAWrongOneAndFromNone) {
    const auto wrong = tests::error_of([&] { sheets_with("grüße 1"); });
    EXPECT_EQ(wrong.number(), 1004);
    EXPECT_NE(wrong.description().find("the password is incorrect"), std::string::npos)
        << wrong.description();
    const auto none = tests::error_of([&] { sheets_with(""); });
    EXPECT_NE(none.description().find("is encrypted"), std::string::npos) << none.description();
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, WorkbookPassword,
                         testing::Values(std::pair(".xlsx", "Calc MS Excel 2007 XML"),
                                         std::pair(".xls", "MS Excel 97"), std::pair(".ods", "calc8")),
                         [](const auto& kind) { return std::string(kind.param.first).substr(1); });

}  // namespace
}  // namespace foliant::hosts::office
