#include <gtest/gtest.h>

#include "windows/com/component.h"

namespace foliant::com {
namespace {

using platform::win32::Bstr;
using platform::win32::from_bstr;

constexpr char no_file[] = "80004100 Foliant: File C:\\no.ps does not exist.";

class LateBound : public testing::Test {
  protected:
    Component component_;
    ComPointer<IDispatch> object_ = component_.create();
    Bstr pdf_{"C:\\no.pdf"};
    Bstr ps_{"C:\\no.ps"};
    Outcome outcome_;
};

TEST_F(LateBound, NamesAreFoundInAnyCase) {
    EXPECT_EQ(dispid_of(*object_.get(), L"CreatePDFfromPS"), 0x6003002E);
    EXPECT_EQ(dispid_of(*object_.get(), L"createpdffromps"), 0x6003002E);
    EXPECT_EQ(dispid_of(*object_.get(), L"TempFilePath"), 0x68030032);
    EXPECT_EQ(dispid_of(*object_.get(), L"RandomFileName"), DISPID_UNKNOWN);
}

TEST_F(LateBound, AMethodWithAResultIsCalledAsMethodOrReadAsProperty) {
    for (const int flags : {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_METHOD | DISPATCH_PROPERTYGET}) {
        call(*object_.get(), L"PrinterName", {}, outcome_, {}, static_cast<WORD>(flags));
        EXPECT_EQ(outcome_.code, S_OK) << flags;
        ASSERT_EQ(outcome_.result->vt, VT_BSTR);
        EXPECT_EQ(from_bstr(outcome_.result->bstrVal), "Acrobat Distiller");
    }
}

TEST_F(LateBound, APropertyIsReadAndAssigned) {
    Bstr folder("C:\\windows");
    call(*object_.get(), L"TempFilePath", {value(folder.get())}, outcome_, {}, DISPATCH_PROPERTYPUT);
    EXPECT_EQ(outcome_.code, S_OK);
    call(*object_.get(), L"TempFilePath", {}, outcome_, {}, DISPATCH_PROPERTYGET);
    ASSERT_EQ(outcome_.result->vt, VT_BSTR);
    EXPECT_EQ(from_bstr(outcome_.result->bstrVal), "C:\\windows\\");
}

TEST_F(LateBound, AMissingFileIsTheComponentsOwnError) {
    call(*object_.get(), L"CreatePDFfromPS", {value(pdf_.get()), value(ps_.get())}, outcome_);
    EXPECT_EQ(outcome_.error, no_file);
}

TEST_F(LateBound, NamedArgumentsReachTheirParametersInAnyOrder) {
    call(*object_.get(), L"CreatePDFfromPS", {value(ps_.get()), value(pdf_.get())}, outcome_,
         {L"strPSFile", L"strPDFFile"});
    EXPECT_EQ(outcome_.error, no_file);
    outcome_.error.clear();
    call(*object_.get(), L"CreatePDFfromPS", {value(pdf_.get()), value(1L), value(ps_.get())}, outcome_,
         {L"BLNSPOOLJOBS", L"strpsfile"});
    EXPECT_EQ(outcome_.error, no_file);
}

TEST_F(LateBound, AnArgumentGivenByPlaceAndByNameIsOneTooMany) {
    call(*object_.get(), L"CreatePDFfromPS", {value(pdf_.get()), value(ps_.get()), value(pdf_.get())},
         outcome_, {L"strPDFFile"});
    EXPECT_EQ(outcome_.error,
              "800A01C2 Foliant: Wrong number of arguments or invalid property assignment: CreatePDFfromPS");
}

TEST_F(LateBound, AnUnknownArgumentNameIsUnknown) {
    call(*object_.get(), L"CreatePDFfromPS", {value(pdf_.get())}, outcome_, {L"strNothing"});
    EXPECT_EQ(outcome_.code, DISP_E_UNKNOWNNAME);
}

TEST_F(LateBound, MissingArgumentsAreLikeNone) {
    call(*object_.get(), L"CreatePDFfromPS", {value(pdf_.get()), value(ps_.get()), missing(), missing()},
         outcome_);
    EXPECT_EQ(outcome_.error, no_file);
    call(*object_.get(), L"CreatePDFfromPS", {value(pdf_.get()), missing()}, outcome_);
    EXPECT_EQ(outcome_.error, "800A01C1 Foliant: Argument not optional: strPSFile");
}

TEST_F(LateBound, AValueThatDoesNotFitNamesItsParameter) {
    double large = 1e10;
    call(*object_.get(), L"PrintPDF", {value(pdf_.get()), missing(), missing(), reference(VT_R8, &large)},
         outcome_);
    EXPECT_EQ(outcome_.error, "800A0006 Foliant: Overflow: lngFirstPageNo");
    Bstr word("page");
    call(*object_.get(), L"PrintPDF", {value(pdf_.get()), missing(), missing(), value(word.get())}, outcome_);
    EXPECT_EQ(outcome_.error, "800A000D Foliant: Type mismatch: lngFirstPageNo");
    VARIANT null{};
    null.vt = VT_NULL;
    call(*object_.get(), L"PrintPDF", {null}, outcome_);
    EXPECT_EQ(outcome_.error, "800A005E Foliant: Invalid use of Null: strPDFFile");
}

TEST_F(LateBound, WithoutAPlaceForTheDescriptionTheResultIsTheBareCode) {
    DISPPARAMS none{};
    const auto invoke = [&](DISPPARAMS& sent) {
        return object_->Invoke(0x6003002E, IID_NULL, 0, DISPATCH_METHOD, &sent, nullptr, nullptr, nullptr);
    };
    EXPECT_EQ(invoke(none), DISP_E_PARAMNOTOPTIONAL);
    std::vector<VARIANT> many(8, value(pdf_.get()));
    DISPPARAMS too_many{many.data(), nullptr, 8, 0};
    EXPECT_EQ(invoke(too_many), DISP_E_BADPARAMCOUNT);
    std::vector<VARIANT> two(2, value(ps_.get()));
    DISPPARAMS no_such_file{two.data(), nullptr, 2, 0};
    EXPECT_EQ(invoke(no_such_file), static_cast<HRESULT>(0x80004100));
    EXPECT_EQ(object_->Invoke(12345, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBound, ByReferenceVariablesOfEveryTypeAreRead) {
    BSTR text = ps_.get();
    Variant variable;
    variable->vt = VT_BSTR;
    variable->bstrVal = Bstr("C:\\no.ps").release();
    VARIANT inner = reference(VT_BSTR, &text);
    for (const VARIANT& given : {value(ps_.get()), reference(VT_BSTR, &text),
                                 reference(VT_VARIANT, variable.get()), reference(VT_VARIANT, &inner)}) {
        outcome_.error.clear();
        call(*object_.get(), L"CreatePDFfromPS", {value(pdf_.get()), given}, outcome_);
        EXPECT_EQ(outcome_.error, no_file) << given.vt;
    }
}

TEST_F(LateBound, VariablesThatTheMemberDidNotChangeKeepTheirType) {
    std::int16_t show = 1;
    Variant empty;
    call(*object_.get(), L"CreatePDFfromPS",
         {value(pdf_.get()), value(ps_.get()), reference(VT_VARIANT, empty.get()), reference(VT_I2, &show)},
         outcome_);
    EXPECT_EQ(outcome_.error, no_file);
    EXPECT_EQ(empty->vt, VT_EMPTY);
    EXPECT_EQ(show, 1);
}

TEST_F(LateBound, SetDefPrinterChangesTheUsersDefaultPrinter) {
    const auto default_printer = [] {
        char device[100];
        GetProfileStringA("windows", "Device", "", device, sizeof device);
        return std::string(device);
    };
    WriteProfileStringA("PrinterPorts", "Adobe PDF", "winspool,Ne00:,15,45");
    Bstr printer("Adobe PDF");
    call(*object_.get(), L"SetDefPrinter", {value(printer.get())}, outcome_);
    EXPECT_EQ(outcome_.code, S_OK) << outcome_.error;
    EXPECT_EQ(default_printer(), "Adobe PDF,winspool,Ne00:");
    Bstr unknown("Nowhere");
    call(*object_.get(), L"SetDefPrinter", {value(unknown.get())}, outcome_);
    EXPECT_EQ(outcome_.code, S_OK) << outcome_.error;
    EXPECT_EQ(default_printer(), "Adobe PDF,winspool,Ne00:");
}

}  // namespace
}  // namespace foliant::com
