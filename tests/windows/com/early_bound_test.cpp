#include <gtest/gtest.h>
#include <ocidl.h>

#include "com/identifiers.h"
#include "foliant.h"
#include "windows/com/component.h"

namespace foliant::com {
namespace {

using platform::win32::Bstr;
using platform::win32::from_bstr;

class EarlyBound : public testing::Test {
  protected:
    Component component_;
    ComPointer<Foliant::_BuildPDF> object_ =
        component_.create().as<Foliant::_BuildPDF>(Foliant::IID__BuildPDF);
};

std::string error_info() {
    ComPointer<IErrorInfo> info;
    if (GetErrorInfo(0, info.put()) != S_OK) return "";
    BSTR source = nullptr;
    BSTR description = nullptr;
    info->GetSource(&source);
    info->GetDescription(&description);
    const std::string text = from_bstr(source) + ": " + from_bstr(description);
    SysFreeString(source);
    SysFreeString(description);
    return text;
}

TEST_F(EarlyBound, ResultsArriveThroughTheirPlaces) {
    BSTR text = nullptr;
    EXPECT_EQ(object_->PrinterName(&text), S_OK);
    EXPECT_EQ(from_bstr(text), "Acrobat Distiller");
    SysFreeString(text);
    EXPECT_EQ(object_->PrinterName(nullptr), E_POINTER);
}

TEST_F(EarlyBound, TheAccessorsAreTheLastSlots) {
    Bstr folder("C:\\windows");
    EXPECT_EQ(object_->put_TempFilePath(folder.get()), S_OK);
    BSTR text = nullptr;
    EXPECT_EQ(object_->get_TempFilePath(&text), S_OK);
    EXPECT_EQ(from_bstr(text), "C:\\windows\\");
    SysFreeString(text);
}

TEST_F(EarlyBound, FailuresCarryErrorInfo) {
    Bstr pdf("C:\\no.pdf");
    Bstr ps("C:\\no.ps");
    Bstr none("");
    BSTR texts[] = {pdf.get(), ps.get(), none.get(), none.get()};
    VARIANT_BOOL no = VARIANT_FALSE;
    EXPECT_EQ(object_->CreatePDFfromPS(&texts[0], &texts[1], &texts[2], &no, &no, &texts[3], &no),
              static_cast<HRESULT>(0x80004100));
    EXPECT_EQ(error_info(), "Foliant: File C:\\no.ps does not exist.");
    ComPointer<ISupportErrorInfo> support = object_.as<ISupportErrorInfo>(IID_ISupportErrorInfo);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(Foliant::IID__BuildPDF), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IClassFactory), S_FALSE);
}

TEST_F(EarlyBound, AnOptionalReferenceMayBeNull) {
    Bstr pdf("C:\\no.pdf");
    Bstr ps("C:\\no.ps");
    BSTR texts[] = {pdf.get(), ps.get()};
    EXPECT_EQ(object_->CreatePDFfromPS(&texts[0], &texts[1], nullptr, nullptr, nullptr, nullptr, nullptr),
              static_cast<HRESULT>(0x80004100));
    EXPECT_EQ(object_->CreatePDFfromPS(&texts[0], nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
              static_cast<HRESULT>(0x800A01C1));
}

TEST_F(EarlyBound, AllInterfacesAreOneObject) {
    const auto unknown = object_.as<IUnknown>(IID_IUnknown);
    for (const IID& id : {IID_IDispatch, interface_id, IID_ISupportErrorInfo, IID_IConnectionPointContainer,
                          IID_IProvideClassInfo, IID_IProvideClassInfo2}) {
        const auto face = object_.as<IUnknown>(id);
        ASSERT_TRUE(face);
        EXPECT_EQ(face.as<IUnknown>(IID_IUnknown).get(), unknown.get());
    }
    EXPECT_FALSE(object_.as<IUnknown>(IID_IClassFactory));
}

}  // namespace
}  // namespace foliant::com
