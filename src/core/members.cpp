#include "core/members.h"

#include "automation/error.h"
#include "core/member_table.h"
#include "session/errors.h"

namespace foliant::core {

constinit const std::array<Member, member_count> members = member_table;

constinit const std::array<std::size_t, member_count> library_order =
    order_with_accessors_before<"PrinterName">(member_table);

// Raised before anything outside is touched, so that no client takes silence for success.
void detail::raise_not_available(const Member& member) {
    throw automation::Error(static_cast<std::int32_t>(automation::RuntimeError::action_not_supported),
                            std::string(session::application_title),
                            std::string(member.name) + std::string(not_available_ending));
}

}  // namespace foliant::core
