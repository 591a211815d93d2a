#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "sender/grammar_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (!foliant::sender::test::grammar_holds({reinterpret_cast<const char*>(data), size})) std::abort();
    return 0;
}
