#include "session/session.h"

#include "automation/coerce.h"
#include "automation/error.h"
#include "automation/text.h"
#include "registered/keys.h"
#include "session/acrobat_versions.h"
#include "session/errors.h"
#include "session/registry_access.h"

namespace foliant::session {

using automation::Error;
using automation::RuntimeError;
using automation::with_separator;

namespace {

/// The window that a question of the shell would belong to; the shell asks none for the folders used here.
constexpr std::intptr_t shell_owner = 100;

}  // namespace

Session::Session(const platform::Platform& platform, automation::EventSink& events)
    : platform_(platform), events_(events) {
    acrobat_version_ = read_default_value(registered::acrobat_version_key);
    printer_name_ = read_default_value(registered::pdf_printer_key);
    if (printer_name_.empty())
        printer_name_ =
            acrobat_is_exactly_6_0(*this) ? registered::pdf_printer_of_6_0 : registered::usual_pdf_printer;
    ignoring_errors([&] {
        temp_file_path_ = with_separator(platform_.shell.library_folder(), platform_.files.separator());
    });
}

std::string Session::read_default_value(std::string_view key) const {
    std::string text;
    ignoring_errors([&] {
        clsRegistry registry(platform_);
        registry.OpenRegistry(platform::hkey_local_machine, std::string(key));
        text = automation::to_text(registry.GetValue("", false));
    });
    return text;
}

double Session::acrobat_version_number() const noexcept {
    return automation::leading_number(acrobat_version_);
}

void Session::set_TempFilePath(const std::string& folder) noexcept {
    ignoring_errors([&] {
        try {
            platform_.files.make_folder(folder);
        } catch (const Error& error) {
            // 75 is what a folder that exists already gives.
            if (!error.is(RuntimeError::path_file_access)) return;
        }
        temp_file_path_ = with_separator(folder, platform_.files.separator());
    });
}

bool Session::FileExists(const std::string& path) const noexcept {
    try {
        platform_.files.length(path);
        return true;
    } catch (...) {
        return false;
    }
}

std::string Session::RandomFileName() {
    while (true) {
        random_.seed(platform_.clock.random_seed());
        // 24 bits: what a single-precision number in [0, 1) holds.
        const float r = static_cast<float>(random_() >> 40U) / 16777216.0F;
        const auto n = static_cast<std::int64_t>(static_cast<double>(r) * 99999999.0 + 1.0);
        std::string digits = std::to_string(n);
        bool taken = false;
        ignoring_errors([&] { taken = platform_.files.exists_in_current_folder(digits); });
        if (!taken) return digits;
    }
}

std::string Session::GetSpecialFolder(std::int32_t folder) const noexcept {
    try {
        const auto buffer = platform_.shell.special_folder(shell_owner, folder);
        return buffer ? buffer->substr(0, buffer->find('\0')) : std::string();
    } catch (...) {
        return {};
    }
}

void Session::require_file(const std::string& path) const {
    if (!FileExists(path)) throw missing_file_error(path);
}

void Session::remove_if_exists(const std::string& path) const {
    if (FileExists(path)) platform_.files.remove(path);
}

std::string Session::temporary_file(std::string_view extension) {
    return temp_file_path_ + RandomFileName() + std::string(extension);
}

}  // namespace foliant::session
