// Sinks of a client during Distiller's jobs, each with a character of its own. This process is the client.

#include <gtest/gtest.h>

#include "foliant.h"
#include "platform/win32/text.h"
#include "windows/clients/client_run.h"
#include "windows/clients/installed_component.h"
#include "windows/clients/recording_sink.h"
#include "windows/com/component.h"
#include "windows/servers/record.h"

namespace foliant::tests::clients {
namespace {

using com::ComPointer;
using platform::win32::Bstr;
using platform::win32::from_bstr;
using platform::win32::to_utf8;
using servers::Kind;

ComPointer<RecordingSink> new_sink(const char* name, RecordingSink::Action action = {}) {
    return ComPointer<RecordingSink>::adopt(new RecordingSink(std::string(name) + ": ", std::move(action)));
}

class Events : public testing::TestWithParam<Kind> {
  protected:
    Events() {
        CoInitialize(nullptr);
        CoCreateInstance(Foliant::CLSID_BuildPDF, nullptr, CLSCTX_INPROC_SERVER, Foliant::IID__BuildPDF,
                         pdf_.put_void());
        ClientRun::prepare("events", "good.ps", "%!PS\r\n%log A line of the log\r\n");
        ClientRun::prepare("events", "bad.ps", "%!PS\r\n%fail\r\n");
    }
    ~Events() override {
        for (const char* name : {"good.ps", "bad.ps", "out.pdf"})
            DeleteFileW((folder_ + platform::win32::to_utf16(name)).c_str());
        RemoveDirectoryW(folder_.c_str());
        pdf_.reset();
        CoFreeUnusedLibraries();
    }

    void convert(const char* name) {
        const Bstr input(to_utf8(folder_) + name);
        const Bstr output(to_utf8(folder_) + "out.pdf");
        BSTR texts[] = {output.get(), input.get()};
        EXPECT_EQ(pdf_->CreatePDFfromPS(&texts[0], &texts[1], nullptr, nullptr, nullptr, nullptr, nullptr),
                  S_OK);
    }

    std::string record() const {
        std::string text = component_.record();
        for (auto at = text.find(to_utf8(folder_)); at != std::string::npos; at = text.find(to_utf8(folder_)))
            text.erase(at, to_utf8(folder_).size());
        return text;
    }

    InstalledComponent component_{GetParam()};
    ComPointer<Foliant::_BuildPDF> pdf_;
    std::wstring folder_ = ClientRun::folder_of("events");
};

TEST_P(Events, ReachSinksThatFailLeaveRemoveEachOtherAndCallBack) {
    DWORD leaving = 0;
    DWORD victim = 0;
    const auto first = new_sink("changing", [](DISPID event, DISPPARAMS& sent) {
        if (event == Foliant::DISPID_JobStart) SysReAllocString(sent.rgvarg[0].pbstrVal, L"elsewhere.pdf");
        return S_OK;
    });
    const auto second = new_sink("failing", [](DISPID, DISPPARAMS&) { return E_FAIL; });
    const auto third = new_sink("leaving", [&](DISPID, DISPPARAMS&) {
        EXPECT_TRUE(disconnect(*pdf_.get(), leaving));
        return S_OK;
    });
    const auto fourth = new_sink("removing", [&](DISPID event, DISPPARAMS&) {
        if (event == Foliant::DISPID_PercentDone) disconnect(*pdf_.get(), victim);
        return S_OK;
    });
    const auto fifth = new_sink("calling", [&](DISPID event, DISPPARAMS&) {
        if (event != Foliant::DISPID_LogMessage) return S_OK;
        BSTR printer = nullptr;
        EXPECT_EQ(pdf_->PrinterName(&printer), S_OK);
        servers::record("calling: reads " + from_bstr(printer));
        SysFreeString(printer);
        return S_OK;
    });
    const auto sixth = new_sink("removed");
    connect(*pdf_.get(), *first.get());
    connect(*pdf_.get(), *second.get());
    leaving = connect(*pdf_.get(), *third.get());
    connect(*pdf_.get(), *fourth.get());
    connect(*pdf_.get(), *fifth.get());
    victim = connect(*pdf_.get(), *sixth.get());
    convert("good.ps");
    convert("bad.ps");
    EXPECT_EQ(record(), expected("events.txt"));
}

TEST_P(Events, AClientMayMakeAWholeCallInOne) {
    bool nested = false;
    const auto sink = new_sink("nesting", [&](DISPID event, DISPPARAMS&) {
        if (event == Foliant::DISPID_JobStart && !std::exchange(nested, true)) convert("bad.ps");
        return S_OK;
    });
    connect(*pdf_.get(), *sink.get());
    convert("good.ps");
    EXPECT_EQ(record(), expected("nested-calls.txt"));
}

INSTANTIATE_TEST_SUITE_P(Hosts, Events, testing::Values(Kind::in_process, Kind::local), [](const auto& kind) {
    return kind.param == Kind::local ? "InAProcessOfTheirOwn" : "InTheClientsProcess";
});

}  // namespace
}  // namespace foliant::tests::clients
