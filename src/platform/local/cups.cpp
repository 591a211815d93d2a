#include "platform/local/cups.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cups/cups.h>
#include <dlfcn.h>

#include "automation/error.h"

namespace foliant::platform::local {

namespace fs = std::filesystem;
using automation::Error;
using automation::RuntimeError;

/// The few functions that are called, by their names in the library.
class Cups::Library {
  public:
    explicit Library(void* handle)
        : get_named_dest(function<decltype(&cupsGetNamedDest)>(handle, "cupsGetNamedDest")),
          get_dests(function<decltype(&cupsGetDests2)>(handle, "cupsGetDests2")),
          free_dests(function<decltype(&cupsFreeDests)>(handle, "cupsFreeDests")),
          print_file(function<decltype(&cupsPrintFile)>(handle, "cupsPrintFile")),
          last_error(function<decltype(&cupsLastErrorString)>(handle, "cupsLastErrorString")) {}

    bool is_whole() const {
        return get_named_dest != nullptr && get_dests != nullptr && free_dests != nullptr &&
               print_file != nullptr && last_error != nullptr;
    }

    /// The name of the queue asked for, or of the default queue for null; "" when there is none.
    std::string queue_name(const char* wanted) const {
        cups_dest_t* found = get_named_dest(CUPS_HTTP_DEFAULT, wanted, nullptr);
        if (found == nullptr) return {};
        std::string name = found->name;
        free_dests(1, found);
        return name;
    }

    std::vector<std::string> queue_names() const {
        cups_dest_t* found = nullptr;
        const int count = get_dests(CUPS_HTTP_DEFAULT, &found);
        std::vector<std::string> names;
        names.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            names.emplace_back(found[i].name);
        free_dests(count, found);
        return names;
    }

    const decltype(&cupsGetNamedDest) get_named_dest;
    const decltype(&cupsGetDests2) get_dests;
    const decltype(&cupsFreeDests) free_dests;
    const decltype(&cupsPrintFile) print_file;
    const decltype(&cupsLastErrorString) last_error;

  private:
    template <class Function>
    static Function function(void* handle, const char* name) {
        return reinterpret_cast<Function>(::dlsym(handle, name));
    }
};

namespace {

/// Loading the library takes longer than all else that an ordinary call does here, so it is not loaded just
/// to learn that nothing was ever set up.
bool shows_signs_of_a_spooler() {
    constexpr std::array variables{"LPDEST", "PRINTER", "CUPS_SERVER"};
    if (std::any_of(variables.begin(), variables.end(),
                    [](const char* name) { return std::getenv(name) != nullptr; })) {
        return true;
    }
    const char* home = std::getenv("HOME");
    const fs::path user_settings = fs::path(home != nullptr ? home : "/") / ".cups";
    const std::array<fs::path, 4> traces{"/run/cups/cups.sock", "/etc/cups/client.conf",
                                         "/etc/cups/lpoptions", user_settings};
    std::error_code ignored;
    return std::any_of(traces.begin(), traces.end(),
                       [&](const fs::path& trace) { return fs::exists(trace, ignored); });
}

}  // namespace

Cups::Cups() = default;
Cups::~Cups() = default;

Cups::Library* Cups::library() {
    if (!tried_) {
        tried_ = true;
        // Never closed again: the library leaves threads and settings of its own behind.
        if (void* handle = ::dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL)) {
            library_ = std::make_unique<Library>(handle);
            if (!library_->is_whole()) library_.reset();
        }
    }
    return library_.get();
}

bool Cups::has_printer(const std::string& name) {
    const Library* cups = library();
    return cups != nullptr && !name.empty() && cups->queue_name(name.c_str()) == name;
}

std::string Cups::default_printer() {
    if (!shows_signs_of_a_spooler()) return {};
    const Library* cups = library();
    return cups == nullptr ? std::string() : cups->queue_name(nullptr);
}

std::vector<std::string> Cups::printers() {
    const Library* cups = shows_signs_of_a_spooler() ? library() : nullptr;
    return cups == nullptr ? std::vector<std::string>() : cups->queue_names();
}

void Cups::print(const std::string& printer, const fs::path& file, const std::string& title) {
    const Library* cups = library();
    if (cups == nullptr) {
        throw Error(RuntimeError::device_io_error,
                    "Cannot print on \"" + printer +
                        "\": this machine has no print spooler. Install the packages "
                        "cups and libcups2, and set the printer up.");
    }
    if (cups->print_file(printer.c_str(), file.c_str(), title.c_str(), 0, nullptr) == 0) {
        throw Error(RuntimeError::device_io_error, "Device I/O error: cannot print " + file.string() +
                                                       " on \"" + printer + "\" (" + cups->last_error() +
                                                       ").");
    }
}

}  // namespace foliant::platform::local
