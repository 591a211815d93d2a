// What is thrown by code that is not the component's own, of whatever type: it ends as an automation error of
// the entry point that was called, and never leaves it.
//
// The component's COM layer is compiled into this program, so that what is thrown here can reach it: a
// library of its own, linked with a runtime of its own, would not even see it.

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

#include "com/class_factory.h"
#include "foliant.h"
#include "platform/win32/class_identifier.h"
#include "platform/win32/text.h"
#include "registered/classes.h"
#include "windows/clients/client_run.h"
#include "windows/clients/recording_sink.h"
#include "windows/com/component.h"
#include "windows/servers/installation.h"

namespace foliant::tests::clients {
namespace {

using com::ComPointer;
using platform::win32::Bstr;
using platform::win32::to_utf8;

constexpr CLSID secure_distiller = platform::win32::class_identifier(registered::security_capable_distiller);

struct Unrelated {};

/// A thing to throw, and the error that clients get.
struct Thrown {
    const char* name;
    void (*raise)();
    const char* error;
};
constexpr Thrown all_thrown[]{
    {"Number", [] { throw 42; }, "800A0033 Foliant: Internal error"},
    {"Text", [] { throw "text"; }, "800A0033 Foliant: Internal error"},
    {"Unrelated", [] { throw Unrelated(); }, "800A0033 Foliant: Internal error"},
    {"Exception", [] { throw std::runtime_error("A message"); }, "800A0033 Foliant: A message"},
    {"OutOfMemory", [] { throw std::bad_alloc(); }, "800A0007 Foliant: Out of memory"},
};

/// An object whose functions throw, if they are told to; it is its own class factory.
class ThrowingObject final : public IDispatch, public IClassFactory {
  public:
    std::function<void()> in_names = [] {};
    std::function<void()> in_invoke = [] {};

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        *out = nullptr;
        if (id == IID_IClassFactory) *out = static_cast<IClassFactory*>(this);
        if (id == IID_IUnknown || id == IID_IDispatch) *out = static_cast<IDispatch*>(this);
        return *out != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** out) override {
        return QueryInterface(id, out);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) override {
        in_names();
        std::fill_n(ids, count, 1);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        in_invoke();
        return S_OK;
    }
};

class ForeignExceptions : public testing::TestWithParam<Thrown> {
  protected:
    static constexpr const char* folder_name = "foreign exceptions";

    ForeignExceptions() {
        CoInitialize(nullptr);
        const auto factory = ComPointer<com::ClassFactory>::adopt(new com::ClassFactory);
        factory->CreateInstance(nullptr, Foliant::IID__BuildPDF, pdf_.put_void());
        CoRegisterClassObject(secure_distiller, static_cast<IClassFactory*>(&object_), CLSCTX_INPROC_SERVER,
                              REGCLS_MULTIPLEUSE, &cookie_);
        ClientRun::prepare(folder_name, "in.ps", "%!PS\r\n");
    }
    ~ForeignExceptions() override {
        CoRevokeClassObject(cookie_);
        for (const wchar_t* file : {L"in.ps", L"out.pdf"})
            DeleteFileW((folder_ + file).c_str());
        RemoveDirectoryW(folder_.c_str());
    }

    /// Calls CreatePDFfromPS by name, and by slot; checks that both end so.
    void convert(bool with_security, const std::string& error) {
        VARIANT security{};
        security.vt = VT_BOOL;
        security.boolVal = with_security ? VARIANT_TRUE : VARIANT_FALSE;
        com::Outcome outcome;
        com::call(*pdf_.get(), L"CreatePDFfromPS",
                  {com::value(output_.get()), com::value(input_.get()), security}, outcome,
                  {L"blnApplySecurity"});
        EXPECT_EQ(outcome.error, error);
        BSTR texts[] = {output_.get(), input_.get()};
        const HRESULT result = pdf_->CreatePDFfromPS(&texts[0], &texts[1], nullptr, nullptr, nullptr, nullptr,
                                                     &security.boolVal);
        EXPECT_EQ(result == S_OK, error.empty());
    }

    /// Of a recorded Acrobat, which takes security.
    const servers::Installation hosts_{servers::Kind::in_process, true};
    ThrowingObject object_;
    ComPointer<Foliant::_BuildPDF> pdf_;
    std::wstring folder_ = ClientRun::folder_of(folder_name);
    const Bstr input_{to_utf8(folder_) + "in.ps"};
    const Bstr output_{to_utf8(folder_) + "out.pdf"};
    DWORD cookie_ = 0;
};

TEST_P(ForeignExceptions, FromAHostsCallAreErrorsOfTheMember) {
    object_.in_invoke = GetParam().raise;
    convert(true, GetParam().error);
    object_.in_names = GetParam().raise;
    convert(true, GetParam().error);
}

TEST_P(ForeignExceptions, FromAnArgumentOfTheCallersAreErrorsOfTheMember) {
    object_.in_names = GetParam().raise;
    VARIANT list{};
    list.vt = VT_DISPATCH;
    list.pdispVal = &object_;
    com::Outcome outcome;
    com::call(*pdf_.get(), L"CreatePDFfromMultiPS", {com::value(output_.get()), list}, outcome);
    EXPECT_TRUE(outcome.error.starts_with(GetParam().error)) << outcome.error;
}

/// Neither the job nor the other sinks hear of a sink's failures, however they come.
TEST_P(ForeignExceptions, FromASinkStayWithIt) {
    int thrown = 0;
    int heard = 0;
    const auto throwing = ComPointer<RecordingSink>::adopt(new RecordingSink("", [&](DISPID, DISPPARAMS&) {
        ++thrown;
        GetParam().raise();
        return S_OK;
    }));
    const auto other = ComPointer<RecordingSink>::adopt(new RecordingSink("", [&](DISPID, DISPPARAMS&) {
        ++heard;
        return S_OK;
    }));
    connect(*pdf_.get(), *throwing.get());
    connect(*pdf_.get(), *other.get());
    convert(false, "");
    EXPECT_EQ(thrown, 8) << "four of each job";
    EXPECT_EQ(heard, 8);
}

INSTANTIATE_TEST_SUITE_P(Thrown, ForeignExceptions, testing::ValuesIn(all_thrown),
                         [](const auto& thrown) { return std::string(thrown.param.name); });

}  // namespace
}  // namespace foliant::tests::clients
