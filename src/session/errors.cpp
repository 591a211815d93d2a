#include "session/errors.h"

namespace foliant::session {

automation::Error component_error(std::string description) {
    return {component_error_number, std::string(application_title), std::move(description)};
}

automation::Error missing_file_error(std::string_view path) {
    return component_error("File " + std::string(path) + " does not exist.");
}

automation::Error raised_again(const automation::Error& caught) {
    return {caught.number(), std::string(application_title), caught.description(), caught.cause()};
}

automation::Error raised_as(std::string description, const automation::Error& caught) {
    return {component_error_number, std::string(application_title), std::move(description),
            std::make_shared<const automation::Error>(caught)};
}

}  // namespace foliant::session
