#include "com/connection_point.h"

#include <algorithm>
#include <array>
#include <olectl.h>

#include "com/enumerator.h"
#include "com/guard.h"
#include "com/identifiers.h"
#include "com/parameter_variant.h"
#include "core/events.h"
#include "platform/win32/variant.h"

namespace foliant::com {

using platform::win32::ComPointer;
using platform::win32::Variant;

namespace {

constexpr std::size_t most_arguments = std::tuple_size_v<decltype(core::Event::parameters)>;

/// Calls one sink. The arguments go by reference to copies that end with the call.
void raise(IDispatch& sink, const core::Event& event, std::span<const automation::Value> arguments) {
    std::array<Variant, most_arguments> copies;
    std::array<VARIANTARG, most_arguments> sent{};
    const std::size_t count = std::min(arguments.size(), most_arguments);
    for (std::size_t i = 0; i < count; ++i) {
        platform::win32::put_value(arguments[i], *copies[i]);
        VARIANTARG& argument = sent[count - 1 - i];
        argument.vt = static_cast<VARTYPE>(VT_BYREF | copies[i]->vt);
        argument.byref = &copies[i]->llVal;
    }
    DISPPARAMS parameters{sent.data(), nullptr, static_cast<UINT>(count), 0};
    Variant result;
    EXCEPINFO failure{};
    try {
        sink.Invoke(event.dispid, IID_NULL, library_locale, DISPATCH_METHOD, &parameters, result.get(),
                    &failure, nullptr);
    } catch (...) {
        // What a sink throws stays with it, as what it returns does.
    }
    SysFreeString(failure.bstrSource);
    SysFreeString(failure.bstrDescription);
    SysFreeString(failure.bstrHelpFile);
}

struct PointEntry {
    ComPointer<IConnectionPoint> point;

    IConnectionPoint* give() const noexcept { return ComPointer<IConnectionPoint>(point).release(); }
};

}  // namespace

CONNECTDATA ConnectionPoint::Connection::give() const noexcept {
    return {ComPointer<IDispatch>(sink).release(), cookie};
}

bool ConnectionPoint::is_connected(DWORD cookie) const noexcept {
    return std::any_of(connections_.begin(), connections_.end(),
                       [&](const Connection& connection) { return connection.cookie == cookie; });
}

void ConnectionPoint::notify(std::string_view name, std::span<const automation::Value> arguments) {
    const auto* event = std::find_if(core::events.begin(), core::events.end(),
                                     [&](const core::Event& candidate) { return candidate.name == name; });
    if (event == core::events.end()) return;
    const std::vector<Connection> connected = connections_;
    for (const Connection& connection : connected) {
        if (is_connected(connection.cookie)) raise(*connection.sink.get(), *event, arguments);
    }
}

HRESULT ConnectionPoint::QueryInterface(REFIID id, void** object) noexcept {
    if (object == nullptr) return E_POINTER;
    const bool known = id == IID_IUnknown || id == IID_IConnectionPoint;
    *object = known ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ConnectionPoint::AddRef() noexcept {
    return owner_.AddRef();
}

ULONG ConnectionPoint::Release() noexcept {
    return owner_.Release();
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* id) noexcept {
    if (id == nullptr) return E_POINTER;
    *id = events_id;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    if (container == nullptr) return E_POINTER;
    *container = &owner_;
    owner_.AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (sink == nullptr || cookie == nullptr) return E_POINTER;
    *cookie = 0;
    return guarded([&] {
        const auto given = ComPointer<IUnknown>::share(sink);
        ComPointer<IDispatch> dispatch = given.as<IDispatch>(events_id);
        if (!dispatch) dispatch = given.as<IDispatch>(IID_IDispatch);
        if (!dispatch) return CONNECT_E_CANNOTCONNECT;
        connections_.push_back({last_cookie_ + 1, std::move(dispatch)});
        *cookie = ++last_cookie_;
        return S_OK;
    });
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) noexcept {
    const auto found =
        std::find_if(connections_.begin(), connections_.end(),
                     [&](const Connection& connection) { return connection.cookie == cookie; });
    if (found == connections_.end()) return CONNECT_E_NOCONNECTION;
    // The sink goes last: it may call back when it is let go of.
    const Connection ended = std::move(*found);
    connections_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** connections) noexcept {
    if (connections == nullptr) return E_POINTER;
    *connections = nullptr;
    return guarded([&] {
        *connections = new Enumerator<IEnumConnections, Connection, CONNECTDATA>(connections_);
        return S_OK;
    });
}

IEnumConnectionPoints* new_connection_point_list(IConnectionPoint& point) {
    using List = Enumerator<IEnumConnectionPoints, PointEntry, IConnectionPoint*>;
    return new List({PointEntry{ComPointer<IConnectionPoint>::share(&point)}});
}

}  // namespace foliant::com
