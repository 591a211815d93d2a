#include "hosts/missing_engine.h"

namespace foliant::hosts {

automation::Error missing_engine(std::string_view application, std::string_view engine,
                                 std::string_view reason, std::string_view package) {
    std::string text = std::string(engine) + " cannot be used: " + std::string(reason) + ".";
    if (!package.empty()) text += " Install or reinstall the package " + std::string(package) + ".";
    return {static_cast<std::int32_t>(automation::RuntimeError::cannot_create_object),
            std::string(application), std::move(text)};
}

}  // namespace foliant::hosts
