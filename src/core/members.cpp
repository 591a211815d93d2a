#include "core/members.h"

#include "core/member_table.h"

namespace foliant::core {

constinit const std::array<Member, member_count> members = member_table;

constinit const std::array<std::size_t, member_count> library_order =
    order_with_accessors_before<"PrinterName">(member_table);

}  // namespace foliant::core
