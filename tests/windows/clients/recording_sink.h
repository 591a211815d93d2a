#pragma once

#include <ole2.h>

namespace foliant::tests::clients {

/// Connects a sink to an object that writes the object's events into the client's record, in the order in
/// which they come: `event JobStart("in.ps", "out.pdf")`. It stays connected as long as the object lives.
HRESULT record_events(IUnknown& object);

}  // namespace foliant::tests::clients
