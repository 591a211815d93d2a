#include "windows/clients/recording_sink.h"

#include <array>
#include <ocidl.h>

#include "foliant.h"
#include "platform/win32/com_pointer.h"
#include "platform/win32/variant.h"
#include "windows/servers/record.h"

namespace foliant::tests::clients {

using platform::win32::ComPointer;

namespace {

constexpr std::array names{"JobStart", "JobDone", "JobFail", "LogMessage", "PercentDone", "PageNumber"};
static_assert(Foliant::DISPID_JobStart == 1 && Foliant::DISPID_PageNumber == 6);

/// What a client sees of an argument, which comes by reference.
std::string shown(const VARIANTARG& argument) {
    if (argument.vt == (VT_BYREF | VT_BSTR))
        return "\"" + platform::win32::from_bstr(*argument.pbstrVal) + "\"";
    if (argument.vt == (VT_BYREF | VT_I4)) return std::to_string(*argument.plVal);
    return "type " + std::to_string(argument.vt);
}

ComPointer<IConnectionPoint> events_of(IUnknown& object) {
    ComPointer<IConnectionPoint> point;
    const auto container =
        ComPointer<IUnknown>::share(&object).as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    if (container) container->FindConnectionPoint(Foliant::DIID___BuildPDF, point.put());
    return point;
}

}  // namespace

HRESULT RecordingSink::QueryInterface(REFIID id, void** out) {
    const bool known = id == IID_IUnknown || id == IID_IDispatch || id == Foliant::DIID___BuildPDF;
    *out = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

ULONG RecordingSink::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT RecordingSink::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* sent, VARIANT*, EXCEPINFO*,
                              UINT*) {
    std::string line;
    for (UINT i = sent->cArgs; i-- > 0;)
        line += (line.empty() ? "" : ", ") + shown(sent->rgvarg[i]);
    const char* name = names.at(static_cast<std::size_t>(event - 1));
    servers::record(beginning_ + "event " + name + "(" + line + ")");
    return action_ ? action_(event, *sent) : S_OK;
}

DWORD connect(IUnknown& object, RecordingSink& sink) {
    DWORD connection = 0;
    const auto events = events_of(object);
    if (events) events->Advise(&sink, &connection);
    return connection;
}

bool disconnect(IUnknown& object, DWORD connection) {
    const auto events = events_of(object);
    return events && SUCCEEDED(events->Unadvise(connection));
}

}  // namespace foliant::tests::clients
