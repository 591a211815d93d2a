#pragma once

#include <filesystem>

namespace foliant::hosts {

/// A document that a host shows its user, and goes on showing when the call is over.
struct LeftOpen {
    std::filesystem::path document;  ///< as it was named to the host
    int page = 1;                    ///< the one that is in view
    /// A text file in the host's private folder, UTF-8, that is to be read aloud; empty for none.
    std::filesystem::path speech;
};

}  // namespace foliant::hosts
