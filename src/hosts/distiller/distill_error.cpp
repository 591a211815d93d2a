#include "hosts/distiller/distill_error.h"

#include <system_error>

namespace foliant::hosts::distiller {

std::string system_reason(int error_number) {
    return std::generic_category().message(error_number);
}

}  // namespace foliant::hosts::distiller
