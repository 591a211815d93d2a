#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "hosts/machine.h"
#include "hosts/office/word/document.h"

namespace foliant::hosts::office {

/// One running Word: what its application object and its documents share.
struct RunningWord {
    Machine& machine;
    std::string active_printer;
    std::int32_t display_alerts = -1;  ///< kept, without effect: this Word asks nothing
    std::vector<std::weak_ptr<Document>> documents;
    bool has_quit = false;
};

}  // namespace foliant::hosts::office
