#include "platform/win32/event_source.h"

#include <ocidl.h>
#include <vector>

#include "automation/error.h"
#include "platform/win32/event_names.h"
#include "platform/win32/outside_error.h"
#include "platform/win32/variant.h"

namespace foliant::platform::win32 {

using automation::Error;
using automation::EventSink;
using automation::RuntimeError;
using automation::Value;

namespace {

/// What the object calls: its source interface, offered as an `IDispatch`. Used by one thread, like the
/// object.
class Listener final : public IDispatch {
  public:
    Listener(SourceInterface source, EventSink& sink) : source_(std::move(source)), sink_(&sink) {}

    /// From now on events go nowhere, whoever still holds this.
    void stop() noexcept { sink_ = nullptr; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        if (out == nullptr) return E_POINTER;
        const bool known =
            IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, source_.id);
        *out = known ? this : nullptr;
        if (!known) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count == nullptr) return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** type) override {
        if (type != nullptr) *type = nullptr;
        return DISP_E_BADINDEX;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO* raised, UINT*) override {
        const auto name = source_.names.find(event);
        if (name == source_.names.end() || sink_ == nullptr) return S_OK;
        // A sink may end its subscription while it is being notified.
        const auto self = ComPointer<IDispatch>::share(this);
        try {
            std::vector<Value> arguments;
            for (UINT i = parameters == nullptr ? 0 : parameters->cArgs; i > 0; --i)
                arguments.push_back(to_value(parameters->rgvarg[i - 1]));
            sink_->notify(name->second, arguments);
            return S_OK;
        } catch (...) {
            return tell(automation::current_error(), raised);
        }
    }

  private:
    ~Listener() = default;

    static HRESULT tell(const Error& error, EXCEPINFO* raised) noexcept {
        const bool is_runtime_error = error.number() > 0 && error.number() <= 0xFFFF;
        const auto scode = is_runtime_error
                               ? static_cast<HRESULT>(0x800A0000U | static_cast<unsigned>(error.number()))
                               : static_cast<HRESULT>(error.number());
        if (raised == nullptr) return FAILED(scode) ? scode : E_FAIL;
        *raised = {};
        raised->scode = scode;
        try {
            raised->bstrSource = Bstr(error.source()).release();
            raised->bstrDescription = Bstr(error.description()).release();
        } catch (...) {  // NOLINT(bugprone-empty-catch): the number has to do
        }
        return DISP_E_EXCEPTION;
    }

    SourceInterface source_;
    EventSink* sink_;
    ULONG references_ = 1;
};

class Connection final : public automation::Subscription {
  public:
    Connection(ComPointer<IConnectionPoint> point, SourceInterface source, EventSink& sink)
        : point_(std::move(point)), listener_(new Listener(std::move(source), sink)) {
        if (SUCCEEDED(point_->Advise(listener_, &cookie_))) return;
        listener_->Release();
        throw Error(RuntimeError::events_not_supported);
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() override {
        listener_->stop();
        point_->Unadvise(cookie_);
        listener_->Release();
    }

  private:
    ComPointer<IConnectionPoint> point_;
    Listener* listener_;
    DWORD cookie_ = 0;
};

ComPointer<IConnectionPoint> first_point(IConnectionPointContainer& container) {
    ComPointer<IEnumConnectionPoints> points;
    ComPointer<IConnectionPoint> point;
    ULONG fetched = 0;
    if (SUCCEEDED(container.EnumConnectionPoints(points.put())) && points)
        points->Next(1, point.put(), &fetched);
    return point;
}

}  // namespace

std::unique_ptr<automation::Subscription> connect(IDispatch& object, const std::optional<CLSID>& class_id,
                                                  EventSink& sink) {
    const auto container =
        ComPointer<IDispatch>::share(&object).as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    if (!container) throw Error(RuntimeError::events_not_supported);
    ComPointer<IConnectionPoint> point;
    if (auto source = described_source(object, class_id)) {
        container->FindConnectionPoint(source->id, point.put());
        if (point) return std::make_unique<Connection>(std::move(point), std::move(*source), sink);
    }
    point = first_point(*container.get());
    SourceInterface source;
    if (!point || FAILED(point->GetConnectionInterface(&source.id)))
        throw Error(RuntimeError::events_not_supported);
    source.names = names_of_source(object, class_id, source.id);
    return std::make_unique<Connection>(std::move(point), std::move(source), sink);
}

}  // namespace foliant::platform::win32
