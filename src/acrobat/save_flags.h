#pragma once

#include <cstdint>

namespace foliant::acrobat {

// How Acrobat saves a document. It takes these numbers in 16 bits.

/// What has changed is appended to the file.
inline constexpr std::int16_t incremental_save = 0;
/// The file is written anew.
inline constexpr std::int16_t full_save = 1;
/// ... in the order in which a viewer that fetches it needs it.
inline constexpr std::int16_t linearised_save = full_save + 4;
/// ... and without the objects that nothing refers to.
inline constexpr std::int16_t compact_save = linearised_save + 32;

}  // namespace foliant::acrobat
