#include "hosts/containment/usual_files.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "posix/file_descriptor.h"

namespace foliant::hosts::containment {
namespace {

/// Without the copies that a list of paths is made of otherwise: every contained process begins with this.
Paths listed(std::initializer_list<std::string_view> names) {
    return {names.begin(), names.end()};
}

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

bool holds(const std::filesystem::path& folder, const std::filesystem::path& inner) {
    return std::mismatch(folder.begin(), folder.end(), inner.begin(), inner.end()).first == folder.end();
}

/// Every contained process reads fifty such files before it starts; the library's streams take longer over one
/// than the system does. Empty for one that cannot be read.
std::string content_of(const std::filesystem::path& path) {
    const posix::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    std::array<char, 8192> piece{};
    std::string text;
    ssize_t size = 0;
    while (file && (size = ::read(file.get(), piece.data(), piece.size())) > 0)
        text.append(piece.data(), static_cast<std::size_t>(size));
    return text;
}

/// What `<dir prefix="xdg">fonts</dir>` and `<dir>~/.fonts</dir>` stand for; empty for what is no absolute
/// path then.
std::filesystem::path folder_meant(std::string_view attributes, std::string_view text) {
    std::filesystem::path folder(text);
    if (attributes.find("\"xdg\"") != std::string_view::npos)
        folder = user_folder("XDG_DATA_HOME", ".local/share") / folder;
    if (text.starts_with("~/")) folder = user_folder("HOME", "") / text.substr(2);
    if (!folder.is_absolute()) return {};
    folder = folder.lexically_normal();
    return folder.has_filename() ? folder : folder.parent_path();
}

void add_configured_folders(Paths& paths, const std::filesystem::path& configuration) {
    const Paths found = font_folders_in(configuration);
    paths.insert(paths.end(), found.begin(), found.end());
}

/// A configuration, and the pieces of one beside it.
void add_configured_fonts(Paths& paths, const std::filesystem::path& folder) {
    for (const char* name : {"fonts.conf", "local.conf"})
        add_configured_folders(paths, folder / name);
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(folder / "conf.d", none))
        add_configured_folders(paths, entry.path());
}

}  // namespace

Paths font_folders_in(const std::filesystem::path& configuration) {
    const std::string text = content_of(configuration);
    if (text.find("<dir") == std::string::npos) return {};
    const std::filesystem::path home = user_folder("HOME", "");
    Paths folders;
    for (std::size_t at = text.find("<dir"); at != std::string::npos; at = text.find("<dir", at + 1)) {
        const std::size_t begin = text.find('>', at);
        const std::size_t end = text.find("</dir>", at);
        if (begin == std::string::npos || end == std::string::npos || end < begin) continue;
        const std::string_view whole = text;
        const auto folder =
            folder_meant(whole.substr(at, begin - at), whole.substr(begin + 1, end - begin - 1));
        if (!folder.empty() && !holds(folder, home)) folders.push_back(folder);
    }
    return folders;
}

Paths system_libraries() {
    return listed({"/lib", "/lib64", "/usr/lib", "/usr/lib64", "/usr/local/lib", "/etc/ld.so.cache",
                   "/etc/ld.so.preload"});
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
    add_configured_fonts(paths, "/etc/fonts");
    if (const auto user = user_folder("XDG_CONFIG_HOME", ".config"); !user.empty())
        add_configured_fonts(paths, user / "fontconfig");
    return paths;
}

Paths locales() {
    return listed({"/usr/share/locale", "/usr/lib/locale", "/usr/share/i18n"}) + time_zones();
}

Paths time_zones() {
    return listed({"/usr/share/zoneinfo", "/etc/localtime", "/etc/timezone"});
}

Paths empty_devices() {
    return listed({"/dev/null", "/dev/zero", "/dev/urandom", "/dev/random"});
}

Paths operator+(Paths left, Paths right) {
    std::ranges::move(right, std::back_inserter(left));
    return left;
}

}  // namespace foliant::hosts::containment
