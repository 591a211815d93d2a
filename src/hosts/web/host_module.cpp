#include <array>
#include <cstdio>
#include <memory>
#include <string>

#include "automation/error.h"
#include "hosts/module.h"
#include "hosts/web/browser.h"

namespace foliant::hosts::web {
namespace {

/// "156.0.8078.79", of "Chromium 156.0.8078.79 built on Debian".
std::string version() {
    const auto program = find_browser();
    if (!program)
        throw automation::Error(
            automation::RuntimeError::cannot_create_object,
            "Chromium is not installed. Install the package chromium to have it; without it LibreOffice "
            "captures pages, without their pictures.");
    const std::string command = program->string() + " --version 2>/dev/null";
    const std::unique_ptr<FILE, decltype(&::pclose)> output(::popen(command.c_str(), "r"), ::pclose);
    std::array<char, 200> line{};
    if (!output || std::fgets(line.data(), line.size(), output.get()) == nullptr) return "unknown";
    const std::string text = line.data();
    const std::size_t first = text.find_first_of("0123456789");
    return first == std::string::npos ? "unknown"
                                      : text.substr(first, text.find_first_of(" \n", first) - first);
}

automation::ObjectPtr create(std::string_view class_name, Machine&) {
    throw automation::Error(automation::RuntimeError::cannot_create_object,
                            "Chromium stands in for no class " + std::string(class_name) + ".");
}

constexpr Module module = {version, create};

}  // namespace
}  // namespace foliant::hosts::web

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::web::module;
}
