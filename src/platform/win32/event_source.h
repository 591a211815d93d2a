#pragma once

#include <memory>
#include <ole2.h>
#include <optional>

#include "automation/object.h"

namespace foliant::platform::win32 {

/// Connects `sink` to the events of an object, by the names that its type information gives them. Where there
/// is none, the events of a Distiller have the numbers 1 to 6 in the order of its reference. Raises 459 when
/// the object has no source of events.
///
/// Events are notified until the subscription is destroyed; nothing is left with the object afterwards. What
/// the sink raises goes back to the object as its error.
std::unique_ptr<automation::Subscription> connect(IDispatch& object, const std::optional<CLSID>& class_id,
                                                  automation::EventSink& sink);

}  // namespace foliant::platform::win32
