#include "acrobat/pages.h"

#include "automation/coerce.h"

namespace foliant::acrobat {

using automation::to_int16;
using automation::Value;

std::optional<std::int32_t> page_index(std::int32_t page_number) noexcept {
    if (page_number < 1) return std::nullopt;
    return page_number - 1;
}

std::int32_t page_count(const Value& document) {
    return automation::to_int32(document.call("GetNumPages"));
}

std::int32_t last_page(const Value& document) {
    return page_count(document) - 1;
}

std::int16_t page_count_in_16_bits(const Value& document) {
    return to_int16(page_count(document));
}

std::int16_t last_page_in_16_bits(const Value& document) {
    return to_int16(last_page(document));
}

}  // namespace foliant::acrobat
