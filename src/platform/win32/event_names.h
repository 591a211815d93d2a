#pragma once

#include <map>
#include <ole2.h>
#include <optional>
#include <string>

#include "platform/win32/com_pointer.h"

namespace foliant::platform::win32 {

/// The events of one source interface by their numbers.
using EventNames = std::map<DISPID, std::string>;

/// A source of events: the interface that a sink has to offer, and what it is told through it.
struct SourceInterface {
    IID id{};
    EventNames names;
};

/// The source interface of an object that its type information calls the default one; nothing when there is
/// no such information. `class_id` helps when the object itself does not say what class it is of.
std::optional<SourceInterface> described_source(IDispatch& object, const std::optional<CLSID>& class_id);

/// The events of the source interface `id` of an object without such information: looked up in the libraries
/// that the object and the registry name; the Distiller's numbers are known here for want of those.
EventNames names_of_source(IDispatch& object, const std::optional<CLSID>& class_id, const IID& id);

}  // namespace foliant::platform::win32
