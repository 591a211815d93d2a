#include "hosts/containment/usual_files.h"

#include <cstdlib>

namespace foliant::hosts::containment {
namespace {

/// A folder that a variable names; else `fallback` in the user's home. Empty when there is no home.
std::filesystem::path user_folder(const char* variable, const char* fallback) {
    if (const char* named = std::getenv(variable); named != nullptr && *named == '/') return named;
    const char* home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::filesystem::path(home) / fallback : std::filesystem::path();
}

void add_user_folder(Paths& paths, const char* variable, const char* fallback, const char* name) {
    const std::filesystem::path folder = user_folder(variable, fallback);
    if (!folder.empty()) paths.push_back(folder / name);
}

}  // namespace

Paths system_libraries() {
    return {"/lib",           "/lib64",           "/usr/lib",          "/usr/lib64",
            "/usr/local/lib", "/etc/ld.so.cache", "/etc/ld.so.preload"};
}

Paths fonts() {
    Paths paths{"/etc/fonts",
                "/usr/share/fontconfig",
                "/usr/share/fonts",
                "/usr/local/share/fonts",
                "/usr/share/texmf/fonts",
                "/usr/share/ghostscript",
                "/usr/share/poppler",
                "/var/cache/fontconfig"};
    add_user_folder(paths, "XDG_DATA_HOME", ".local/share", "fonts");
    add_user_folder(paths, "XDG_CONFIG_HOME", ".config", "fontconfig");
    add_user_folder(paths, "XDG_CACHE_HOME", ".cache", "fontconfig");
    for (const char* name : {".fonts", ".fonts.conf", ".fonts.conf.d"})
        add_user_folder(paths, "HOME", ".", name);
    return paths;
}

Paths locales() {
    return {"/usr/share/locale", "/usr/lib/locale", "/usr/share/zoneinfo",
            "/etc/localtime",    "/etc/timezone",   "/usr/share/i18n"};
}

Paths empty_devices() {
    return {"/dev/null", "/dev/zero", "/dev/urandom", "/dev/random"};
}

Paths operator+(Paths left, const Paths& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

}  // namespace foliant::hosts::containment
