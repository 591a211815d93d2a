#include "hosts/missing_engine.h"

#include "automation/text.h"

namespace foliant::hosts {

/// Debian has each library in a package of its name and version, with a hyphen between two digits. LibreOffice's own,
/// whose names have underscores, are in packages that hold many.
std::string package_of_library(std::string_view loader_reason) {
    constexpr std::string_view ending = ".so.";
    std::string_view file = loader_reason.substr(0, loader_reason.find(':'));
    file.remove_prefix(file.rfind('/') + 1);
    const std::size_t end = file.find(ending);
    if (!file.starts_with("lib") || end == std::string_view::npos || file.find('_') != std::string_view::npos)
        return {};
    const std::string name = automation::to_lower(file.substr(0, end));
    const bool ends_with_digit = name.back() >= '0' && name.back() <= '9';
    return name + (ends_with_digit ? "-" : "") + std::string(file.substr(end + ending.size()));
}

automation::Error missing_engine(std::string_view application, std::string_view engine,
                                 std::string_view reason, std::string_view package) {
    std::string text = std::string(engine) + " cannot be used: " + std::string(reason) + ".";
    if (const std::string library = package_of_library(reason); !library.empty())
        text += " Install or reinstall the package " + library + ".";
    else if (!package.empty())
        text += " Install or reinstall the package " + std::string(package) + ".";
    return {static_cast<std::int32_t>(automation::RuntimeError::cannot_create_object),
            std::string(application), std::move(text)};
}

}  // namespace foliant::hosts
