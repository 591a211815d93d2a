#include "hosts/distiller/distill_error.h"

#include <system_error>

#include "hosts/distiller/utf8.h"

namespace foliant::hosts::distiller {

DistillError::DistillError(const std::string& text) : std::runtime_error(visible(text)) {}

std::string system_reason(int error_number) {
    return std::generic_category().message(error_number);
}

}  // namespace foliant::hosts::distiller
