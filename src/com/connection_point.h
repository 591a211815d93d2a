#pragma once

#include <ocidl.h>
#include <vector>

#include "automation/object.h"
#include "platform/win32/com_pointer.h"

namespace foliant::com {

/// The component's connection point: the sinks that clients have connected, and the raising of events.
///
/// It is a part of its owner and shares the owner's reference count. Sinks may connect and disconnect,
/// themselves or others, while an event is being raised.
class ConnectionPoint final : public IConnectionPoint, public automation::EventSink {
  public:
    /// `owner` is the object that the point is a part of.
    explicit ConnectionPoint(IConnectionPointContainer& owner) noexcept : owner_(owner) {}
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;
    ~ConnectionPoint() override = default;

    /// Raises one of the component's events at every sink, in the order in which they connected, each with
    /// arguments of its own. What a sink returns, or does to its arguments, stays with that sink.
    void notify(std::string_view event, std::span<const automation::Value> arguments) override;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) noexcept override;
    HRESULT STDMETHODCALLTYPE
    GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

  private:
    struct Connection {
        DWORD cookie = 0;
        platform::win32::ComPointer<IDispatch> sink;

        CONNECTDATA give() const noexcept;
    };
    bool is_connected(DWORD cookie) const noexcept;

    IConnectionPointContainer& owner_;
    std::vector<Connection> connections_;
    DWORD last_cookie_ = 0;
};

/// The list of the one connection point; the caller owns the reference.
IEnumConnectionPoints* new_connection_point_list(IConnectionPoint& point);

}  // namespace foliant::com
