#pragma once

#include <string>

/// What the registry has to say about the component for clients to find it.
namespace foliant::com {

/// Registers the class, the ProgID, the type library and the interfaces for the library at `file`. When a
/// step fails, what the earlier ones have written is taken away again, and the step's failure is raised.
void register_component(const std::wstring& file);

/// Takes all of that away; what is not there is passed over. Raises the first failure after the other steps.
void unregister_component();

}  // namespace foliant::com
