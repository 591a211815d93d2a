#include "session/errors.h"

namespace foliant::session {

automation::Error component_error(std::string description) {
    return {component_error_number, std::string(application_title), std::move(description)};
}

automation::Error missing_file_error(std::string_view path) {
    return component_error("File " + std::string(path) + " does not exist.");
}

}  // namespace foliant::session
