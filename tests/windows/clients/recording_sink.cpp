#include "windows/clients/printing_sink.h"

#include <array>
#include <ocidl.h>
#include <string>

#include "foliant.h"
#include "platform/win32/com_pointer.h"
#include "platform/win32/variant.h"
#include "windows/servers/record.h"

namespace foliant::tests::clients {
namespace {

using platform::win32::ComPointer;

constexpr std::array names{"JobStart", "JobDone", "JobFail", "LogMessage", "PercentDone", "PageNumber"};
static_assert(Foliant::DISPID_JobStart == 1 && Foliant::DISPID_PageNumber == 6);

/// What a client sees of an argument, which comes by reference.
std::string shown(const VARIANTARG& argument) {
    if (argument.vt == (VT_BYREF | VT_BSTR))
        return "\"" + platform::win32::to_utf8(*argument.pbstrVal) + "\"";
    if (argument.vt == (VT_BYREF | VT_I4)) return std::to_string(*argument.plVal);
    return "type " + std::to_string(argument.vt);
}

class PrintingSink final : public IDispatch {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = id == IID_IUnknown || id == IID_IDispatch || id == Foliant::DIID___BuildPDF;
        *out = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* sent, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        std::string line;
        for (UINT i = sent->cArgs; i-- > 0;)
            line += (line.empty() ? "" : ", ") + shown(sent->rgvarg[i]);
        servers::record("event " + std::string(names.at(static_cast<std::size_t>(event - 1))) + "(" + line +
                        ")");
        return S_OK;
    }

  private:
    ~PrintingSink() = default;

    ULONG references_ = 1;
};

}  // namespace

HRESULT record_events(IUnknown& object) {
    const auto container =
        ComPointer<IUnknown>::share(&object).as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    if (!container) return E_NOINTERFACE;
    ComPointer<IConnectionPoint> point;
    const HRESULT found = container->FindConnectionPoint(Foliant::DIID___BuildPDF, point.put());
    if (FAILED(found)) return found;
    const auto sink = ComPointer<IDispatch>::adopt(new PrintingSink);
    DWORD cookie = 0;
    return point->Advise(sink.get(), &cookie);
}

}  // namespace foliant::tests::clients
