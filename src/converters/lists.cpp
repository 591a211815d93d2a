#include "converters/lists.h"

#include <cstdint>
#include <limits>

#include "automation/error.h"

namespace foliant::converters {

void for_each_item(const automation::Value& list,
                   const std::function<void(const automation::Value&)>& action) {
    const auto* array = list.if_holds<automation::ArrayPtr>();
    if (array == nullptr) throw automation::Error(automation::RuntimeError::type_mismatch);
    using Index = std::numeric_limits<std::int16_t>;
    const automation::ArrayPtr items = *array;
    constexpr auto most_items = static_cast<std::size_t>(Index::max());
    if (items->lower_bound < Index::min() || items->upper_bound() > Index::max() ||
        items->items.size() > most_items) {
        throw automation::Error(automation::RuntimeError::overflow);
    }
    for (std::int32_t index = items->lower_bound; index <= items->upper_bound(); ++index) {
        action(items->at(index));
    }
}

}  // namespace foliant::converters
