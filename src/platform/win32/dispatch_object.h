#pragma once

#include <memory>
#include <ole2.h>
#include <optional>
#include <string_view>

#include "automation/object.h"
#include "platform/win32/com_pointer.h"

namespace foliant::platform::win32 {

/// An automation object of another program, or of a caller, reached through its `IDispatch`.
///
/// Names of members and arguments are sent exactly as spelled. A reading or a call says "method or property",
/// as a late-bound client does that takes the result. It holds one reference, and lets go of it when the last
/// holder of this object does.
class DispatchObject : public automation::Object {
  public:
    /// `class_id` is the class that the object was created from, when that is known: it helps to find the
    /// names of its events.
    explicit DispatchObject(ComPointer<IDispatch> dispatch, std::optional<CLSID> class_id = std::nullopt)
        : dispatch_(std::move(dispatch)), class_id_(class_id) {}

    /// Waits for a program that is busy, ten seconds at most. Raises 438 for a member that is not there and
    /// 448 for an argument name that is not; an error that the object raises keeps its number, source and
    /// description; any other failure is its HRESULT with the system's text for it.
    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override;

    /// Connects to the object's source of events; raises 459 when it has none. Events are named by the
    /// object's type information.
    std::unique_ptr<automation::Subscription> subscribe(automation::EventSink& sink) override;

    /// Asks for the object's own enumeration, and for `Count` and `Item` when it has none.
    std::unique_ptr<automation::Enumeration> enumerate() override;

    IDispatch* dispatch() const noexcept { return dispatch_.get(); }

  private:
    ComPointer<IDispatch> dispatch_;
    std::optional<CLSID> class_id_;
};

}  // namespace foliant::platform::win32
