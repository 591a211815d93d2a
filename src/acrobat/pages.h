#pragma once

#include <cstdint>
#include <optional>

#include "automation/value.h"

namespace foliant::acrobat {

// Callers count pages from 1, Acrobat counts them from 0.

/// Acrobat's number of a page that a caller named; nothing for a number below 1, which names none.
std::optional<std::int32_t> page_index(std::int32_t page_number) noexcept;

/// How many pages a document has.
std::int32_t page_count(const automation::Value& document);

/// Acrobat's number of the last page of a document, -1 when it has none.
std::int32_t last_page(const automation::Value& document);

// The members that merge, and the one that prints a folder, hold such numbers in 16 bits; what does not fit
// raises 6.

std::int16_t page_count_in_16_bits(const automation::Value& document);
std::int16_t last_page_in_16_bits(const automation::Value& document);

}  // namespace foliant::acrobat
