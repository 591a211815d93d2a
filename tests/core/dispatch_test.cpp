#include "core/dispatch.h"

#include <gtest/gtest.h>

#include "core/members.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage.h"
#include "registered/classes.h"

namespace foliant::core {
namespace {

using automation::Access;
using automation::Arguments;
using automation::Empty;
using automation::Error;
using automation::Missing;
using automation::named;
using automation::Null;
using automation::Value;

class NoEvents : public automation::EventSink {
    void notify(std::string_view, std::span<const Value>) override {}
};

class Dispatch : public testing::Test {
  protected:
    Dispatch() { stage.put_file("C:\\in\\a.ps"); }

    Value call(std::string_view name, Arguments arguments, Access access = Access::call) {
        last = std::move(arguments);
        return invoke(object, name, access, last);
    }

    std::string error_of(std::string_view name, Arguments arguments, Access access = Access::call) {
        try {
            call(name, std::move(arguments), access);
        } catch (const Error& error) {
            return std::to_string(error.number()) + " " + error.source() + ": " + error.description();
        }
        return "nothing raised";
    }

    platform::stage::Stage stage;
    NoEvents sink;
    BuildPDF object{(cast_usual_machine(stage), stage.platform()), sink};
    Arguments last;
};

TEST_F(Dispatch, FindsMembersByNameInAnyCase) {
    for (const Member& member : members)
        EXPECT_EQ(find_dispid(member.name), member.dispid) << member.name;
    EXPECT_EQ(find_dispid("createpdfFROMps"), 0x6003002E);
    EXPECT_EQ(find_dispid("TEMPFILEPATH"), 0x68030032);
    EXPECT_FALSE(find_dispid("CreatePDFfrom").has_value());
    EXPECT_FALSE(find_dispid("CreatePDFfromPSX").has_value());
    EXPECT_FALSE(find_dispid("").has_value());
}

TEST_F(Dispatch, FindsMembersByDispidAndByTheWayTheyAreReached) {
    EXPECT_EQ(find_member(0x68030032, Access::get)->slot, 44);
    EXPECT_EQ(find_member(0x68030032, Access::set)->slot, 45);
    EXPECT_EQ(find_member(0x6003000C, Access::get)->name, "PrinterName");
    EXPECT_EQ(find_member(0x6003000C, Access::call)->name, "PrinterName");
    EXPECT_EQ(find_member(0x6003000C, Access::set), nullptr);
    EXPECT_EQ(find_member(1, Access::call), nullptr);
}

TEST_F(Dispatch, NamedArgumentsReachTheirParametersInAnyOrder) {
    call("CreatePDFfromPS", {named("strpsfile", "C:\\in\\a.ps"), named("strPDFFile", "C:\\out\\a.pdf")});
    EXPECT_NE(stage.journal().find("Distiller.FileToPDF(\"C:\\in\\a.ps\", \"C:\\out\\a.pdf\", \"\")"),
              std::string::npos)
        << stage.journal();
}

TEST_F(Dispatch, ByReferenceArgumentsAreWrittenBack) {
    call("CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\a.ps", "  "});
    EXPECT_EQ(last[2].value, Value("Adobe PDF"));
}

TEST_F(Dispatch, NamedByReferenceArgumentsAreWrittenBackToo) {
    call("CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\a.ps", named("strDistiller", Empty{})});
    EXPECT_EQ(last[2].value, Value("Adobe PDF"));
}

TEST_F(Dispatch, ByReferenceResultsArriveAlsoWhenTheMemberFails) {
    stage.missing_classes.insert(std::string(registered::event_bound_distiller));
    EXPECT_EQ(error_of("CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\a.ps", ""}),
              "429 Foliant: ActiveX component can't create object");
    EXPECT_EQ(last[2].value, Value("Adobe PDF"));
}

TEST_F(Dispatch, NothingIsWrittenBackWhenTheInputIsMissing) {
    EXPECT_EQ(error_of("CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\none.ps", ""}),
              "-2147467008 Foliant: File C:\\in\\none.ps does not exist.");
    EXPECT_EQ(last[2].value, Value(""));
}

TEST_F(Dispatch, MissingOptionalArgumentsAreSkippedPositions) {
    call("CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\a.ps", Missing{}, true});
    EXPECT_NE(stage.journal().find("Distiller.bShowWindow = True"), std::string::npos);
    EXPECT_EQ(last[2].value, Value("Adobe PDF"));
}

TEST_F(Dispatch, ArgumentsBecomeTheTypeOfTheirParameter) {
    call("CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\a.ps", "P", "True", std::int16_t{-1}});
    EXPECT_NE(stage.journal().find("Distiller.bShowWindow = True\nDistiller.bSpoolJobs = True"),
              std::string::npos);
    EXPECT_EQ(last[3].value, Value(true));
}

TEST_F(Dispatch, WhatCannotBecomeTheTypeIsATypeMismatch) {
    const Arguments wrong{"C:\\out\\a.pdf", "C:\\in\\a.ps", "P", "perhaps"};
    EXPECT_EQ(error_of("CreatePDFfromPS", wrong), "13 Foliant: Type mismatch");
    EXPECT_EQ(error_of("CreatePDFfromPS", {"a", "b", Null{}}), "94 Foliant: Invalid use of Null");
    EXPECT_EQ(error_of("CreatePDFfromWebPage", {"a", "b", false, std::int32_t{40000}}),
              "6 Foliant: Overflow");
}

TEST_F(Dispatch, EveryMisuseHasItsOwnError) {
    EXPECT_EQ(error_of("NoSuchMember", {}), "438 Foliant: Object doesn't support this property or method");
    EXPECT_EQ(error_of("CreatePDFfromPS", {"a.pdf"}), "449 Foliant: Argument not optional: strPSFile");
    EXPECT_EQ(error_of("CreatePDFfromMultiPDF", {"a.pdf"}),
              "449 Foliant: Argument not optional: varPDFFiles");
    EXPECT_EQ(error_of("PrinterName", {"x"}),
              "450 Foliant: Wrong number of arguments or invalid property assignment");
    EXPECT_EQ(error_of("CreatePDFfromPS", {"a.pdf", "b.ps", named("strPDFFile", "c.pdf")}),
              "450 Foliant: Wrong number of arguments or invalid property assignment");
    EXPECT_EQ(error_of("CreatePDFfromPS", {"a.pdf", named("strFile", "b.ps")}),
              "448 Foliant: Named argument not found: strFile");
    EXPECT_EQ(error_of("PrinterName", {"x"}, Access::set),
              "438 Foliant: Object doesn't support this property or method");
}

TEST_F(Dispatch, ResultsAreTyped) {
    EXPECT_EQ(call("PrinterName", {}), Value("Adobe PDF"));
    EXPECT_EQ(call("AcrobatVersion", {}, Access::get), Value("6.0"));
    EXPECT_EQ(call("CreatePDFfromPS", {"C:\\out\\a.pdf", "C:\\in\\a.ps"}), Value());
}

TEST_F(Dispatch, TempFilePathIsReadAndWrittenUnderOneDispid) {
    EXPECT_EQ(call("TempFilePath", {}, Access::get), Value("C:\\Program Files\\Foliant\\"));
    stage.folders = {"C:", "C:\\Temp"};
    call("TempFilePath", {"C:\\Temp"}, Access::set);
    EXPECT_EQ(call("TempFilePath", {}, Access::get), Value("C:\\Temp\\"));
}

/// What an omitted argument is to the member, as text; the members themselves come later for most of them.
std::string omitted(std::string_view member_name, std::string_view parameter_name) {
    const Member& member = *find_member(*find_dispid(member_name), Access::call);
    const Parameter& parameter = member.parameters()[*find_parameter(member, parameter_name)];
    switch (parameter.type) {
        case ValueType::string:
            return detail::argument_for<std::string>(parameter, Missing{});
        case ValueType::integer:
            return std::to_string(detail::argument_for<std::int16_t>(parameter, Missing{}));
        case ValueType::boolean:
            return detail::argument_for<bool>(parameter, Missing{}) ? "True" : "False";
        case ValueType::variant:
            return detail::argument_for<Value>(parameter, Missing{}) == Value(Missing{}) ? "missing"
                                                                                         : "a value";
        default:
            return std::to_string(detail::argument_for<std::int32_t>(parameter, Missing{}));
    }
}

TEST(Defaults, AreWhatAnOmittedArgumentBecomes) {
    EXPECT_EQ(omitted("PrintPDFinDir", "strFiles"), "*.pdf");
    EXPECT_EQ(omitted("CreatePDFfromMultiPDFinDir", "strFiles"), "*.pdf");
    EXPECT_EQ(omitted("CreatePDFfromExcel", "lngHeaderAlignment"), "1");
    EXPECT_EQ(omitted("CreatePDFfromExcel", "lngFooterAlignment"), "0");
    EXPECT_EQ(omitted("CreatePDFfromExcel", "lngFirstPageNumber"), "1");
    EXPECT_EQ(omitted("CreatePDFfromWebPage", "intSecsToWaitForPDF"), "2");
    EXPECT_EQ(omitted("CreatePDFfromTextFile", "intFontSize"), "8");
    EXPECT_EQ(omitted("CreatePDFfromPowerPoint", "lngStartSlide"), "-1");
    EXPECT_EQ(omitted("CreatePDFfromPowerPoint", "lngEndSlide"), "-1");
    EXPECT_EQ(omitted("CreatePDFfromAutoCAD", "strPDFWriter"), "Acrobat PDFWriter");
    EXPECT_EQ(omitted("CreatePDFfromAutoCAD", "varLayout"), "missing");
    EXPECT_EQ(omitted("CreatePDFfromWord", "strPassword"), "");
    EXPECT_EQ(omitted("CreatePDFfromWord", "blnLandscape"), "False");
}

}  // namespace
}  // namespace foliant::core
