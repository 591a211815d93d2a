#include "platform/local/local_machine.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <system_error>
#include <utility>

#include "automation/error.h"
#include "automation/text.h"
#include "automation/value.h"
#include "hosts/containment/containment.h"
#include "hosts/module_part.h"
#include "hosts/viewer.h"
#include "hosts/web/address.h"
#include "hosts/web/browser.h"
#include "hosts/web/capture.h"
#include "hosts/web/capture_error.h"
#include "platform/local/plain_capture.h"
#include "registered/classes.h"
#include "sender/command.h"

namespace foliant::platform::local {

namespace fs = std::filesystem;

namespace {

constexpr const char* sender_program = "quorixsend.exe";

fs::path usual_configuration_folder() {
    // Both variables count only as absolute paths: a program's settings must not depend on where it is
    // started.
    if (const char* named = std::getenv("XDG_CONFIG_HOME");
        named != nullptr && fs::path(named).is_absolute()) {
        return fs::path(named) / "foliant";
    }
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr && fs::path(home).is_absolute() ? home : "/") / ".config" / "foliant";
}

LocalOptions completed(LocalOptions options) {
    std::error_code ignored;
    if (options.temporary_folder.empty()) options.temporary_folder = PrivateFolder::usual_parent();
    if (options.configuration_folder.empty()) options.configuration_folder = usual_configuration_folder();
    if (options.executable.empty()) options.executable = fs::read_symlink("/proc/self/exe", ignored);
    return options;
}

std::vector<fs::path> module_folders(const LocalOptions& options) {
    if (!options.hosts_folder.empty()) return {options.hosts_folder};
    return hosts::hosts_folders(options.executable);
}

/// What follows `/p `, without the quotation marks around it; "" for anything else.
std::string file_to_print(std::string_view tail) {
    if (!tail.starts_with("/p ") && !tail.starts_with("/P ")) return {};
    std::string_view file = automation::trim_blanks(tail.substr(3));
    if (file.size() > 1 && file.starts_with('"') && file.ends_with('"'))
        file = file.substr(1, file.size() - 2);
    return std::string(file);
}

}  // namespace

LocalMachine::LocalMachine(LocalOptions options)
    : options_(completed(std::move(options))),
      private_folder_(options_.temporary_folder),
      store_(options_.configuration_folder),
      printers_(store_),
      registry_(store_, options_.on_trouble),
      desktop_(options_.on_message_box),
      shell_([this] { return library_folder(); }, [this] { return make_system_folder(); }),
      modules_(module_folders(options_), options_.linked_modules, *this, options_.on_trouble),
      printer_control_(printers_, store_, options_.on_trouble) {
    programs_.install((private_folder_.place() / "system" / sender_program).string(),
                      [this](std::string_view tail) { run_sender(tail); });
    programs_.install(std::string(registered::notepad), [this](std::string_view tail) { run_notepad(tail); });
}

Platform LocalMachine::platform() {
    return {registry_, files_, clock_, desktop_, programs_, shell_, modules_, printer_control_};
}

/// Temporary files are made in it; a call that makes none does without.
fs::path LocalMachine::library_folder() {
    return needs_.folders ? private_folder_.path() : private_folder_.place();
}

fs::path LocalMachine::make_system_folder() {
    fs::path folder = private_folder_.path() / "system";
    // The sender is this very program. Looking at the link has to find a file, even one that an update has
    // replaced.
    if (fs::create_directory(folder)) {
        std::error_code gone;
        const bool there = fs::exists(options_.executable, gone);
        fs::create_symlink(there ? options_.executable : "/proc/self/exe", folder / sender_program);
    }
    return folder;
}

std::string LocalMachine::containment() {
    return hosts::containment::describe(hosts::containment::offered());
}

void LocalMachine::run_sender(std::string_view tail) {
    try {
        desktop_.start_sender(sender::parse(tail));
    } catch (const sender::CommandError& error) {
        // As a program, the sender has been started and ends at once; its caller never looks at how.
        if (options_.on_trouble) options_.on_trouble(error.what());
    }
}

/// Notepad is only there to print: what it shows nobody would see.
void LocalMachine::run_notepad(std::string_view tail) {
    const std::string file = file_to_print(tail);
    if (file.empty())
        throw automation::Error(automation::RuntimeError::invalid_procedure_call,
                                "Notepad only prints here: notepad.exe /p \"FILE\".");
    const automation::Value notepad(modules_.create(registered::notepad));
    notepad.call("PrintFile", {file});
}

std::optional<std::vector<std::string>> LocalMachine::scratch_text(const std::string& path) const {
    const ScratchTexts::Lines* const lines = files_.scratch_text(path);
    return lines == nullptr ? std::nullopt : std::optional(*lines);
}

void LocalMachine::print(std::string_view printer, const fs::path& pdf, std::string_view title) {
    printers_.print(printer, pdf, title);
}

void LocalMachine::tell_failure(const std::string& sentence) {
    if (std::ranges::find(failures_told_, sentence) == failures_told_.end())
        failures_told_.push_back(sentence);
}

void LocalMachine::show(hosts::Dialog& dialog) {
    desktop_.show(dialog);
}

hosts::HostWindow LocalMachine::open_window(std::string caption, std::function<void()> on_close) {
    return desktop_.open_window(std::move(caption), std::move(on_close));
}

void LocalMachine::close_window(hosts::HostWindow window) {
    desktop_.close_window(window);
}

void LocalMachine::show_in_acrobat(const fs::path& pdf, const std::string& name) {
    posix::FileDescriptor file(::open(pdf.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (!file)
        throw automation::Error(automation::RuntimeError::file_not_found,
                                name + " is not there to be shown.");
    take_handed_over();
    handed_over_ = hosts::HandedOver{name, std::move(file)};
    handed_over_window_ = desktop_.open_window(hosts::viewer_caption(name), [this] { handed_over_.reset(); });
}

/// The window that was there for it is Acrobat's own from now on.
std::optional<hosts::HandedOver> LocalMachine::take_handed_over() {
    desktop_.close_window(std::exchange(handed_over_window_, 0));
    return std::exchange(handed_over_, std::nullopt);
}

hosts::CapturedPage LocalMachine::capture_page(const std::string& address) {
    constexpr auto failure_of_acrobat = static_cast<std::int32_t>(0x80004005U);
    const std::string what = address + " cannot be captured: ";
    hosts::CapturedPage page;
    try {
        page = hosts::web::find_browser()
                   ? capture_in_browser(address)
                   : capture_plainly(modules_, *this, hosts::web::full_address(address));
    } catch (const hosts::web::NoBrowser& reason) {
        throw automation::Error(automation::RuntimeError::cannot_create_object, what + reason.what() + ".");
    } catch (const std::runtime_error& reason) {
        throw automation::Error(failure_of_acrobat, "Adobe Acrobat", what + reason.what() + ".");
    }
    if (!page.errors.empty()) page.errors = address + " was captured " + page.errors + ".";
    return page;
}

hosts::CapturedPage LocalMachine::capture_in_browser(const std::string& address) {
    const fs::path pdf = private_folder_.path() / "captured-page.pdf";
    hosts::CapturedPage page;
    page.errors = hosts::web::capture_page(address, pdf, private_folder_.path());
    page.pdf = posix::FileDescriptor(::open(pdf.c_str(), O_RDONLY | O_CLOEXEC));
    fs::remove(pdf);
    return page;
}

std::optional<std::string> LocalMachine::setting(std::string_view key, std::string_view value) const {
    const auto stored = store_.get("HKEY_CURRENT_USER\\" + std::string(key), value);
    if (!stored) return std::nullopt;
    if (auto text = stored->text()) return text;
    throw automation::Error(automation::RuntimeError::type_mismatch,
                            "The setting " + std::string(value) + " under " + std::string(key) +
                                " is not a text. Set it again, as one.");
}

}  // namespace foliant::platform::local
