#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/machine.h"
#include "platform/local/desktop.h"
#include "platform/local/host_modules.h"
#include "platform/local/local_clock.h"
#include "platform/local/local_files.h"
#include "platform/local/local_printer_control.h"
#include "platform/local/local_programs.h"
#include "platform/local/local_registry.h"
#include "platform/local/local_shell.h"
#include "platform/local/printers.h"
#include "platform/local/private_folder.h"
#include "platform/local/registry_store.h"
#include "platform/platform.h"

/// The outside world of a machine without Windows: real files and clock, a keyed store for the registry, a
/// desktop inside the process, and stand-in hosts. Knows the ports, hosts/ and sender/.
namespace foliant::platform::local {

/// Where a local machine keeps things and whom it tells. What is left empty has its usual value.
struct LocalOptions {
    std::filesystem::path temporary_folder{};  ///< For the private folder; `$TMPDIR`, else /tmp.
    /// Holds registry.json; `$XDG_CONFIG_HOME/foliant`, else `~/.config/foliant`.
    std::filesystem::path configuration_folder{};
    std::filesystem::path executable{};  ///< The running program.
    std::filesystem::path
        hosts_folder{};              ///< Modules are looked for there only; else where the program's own lie.
    LinkedModules linked_modules{};  ///< Hosts that need no file.
    /// How much each host may allocate, in bytes.
    std::uint64_t memory_limit_bytes = hosts::usual_memory_limit;
    /// Shows a message box; nobody sees it when empty.
    Desktop::MessageBox on_message_box{};
    /// Told, in a sentence, of trouble that raises no error in the library; may be empty.
    std::function<void(const std::string&)> on_trouble{};
};

/// What a call needs of its machine.
struct CallNeeds {
    bool text = true;          ///< the text of pages, for which hosts see fonts
    bool folders = true;       ///< private ones, for temporary files and for hosts
    bool takes_turns = false;  ///< with a host that has many short answers
};

/// The local machine, as the library sees it (`platform`) and as its hosts see it (`hosts::Machine`).
///
/// Making one makes nothing else: the private folder is made and settings are read when something asks for them,
/// engines are loaded when one of their classes is created. Everything that was got from it has to be gone
/// before it goes.
class LocalMachine : public hosts::Machine {
  public:
    explicit LocalMachine(LocalOptions options = {});

    /// The ports. They live as long as the machine.
    Platform platform();

    RegistryStore& registry() { return store_; }
    Desktop& desktop() { return desktop_; }
    LocalPrograms& programs() { return programs_; }

    /// Every host with its engine, version and package; starts no engine.
    std::vector<HostStatus> host_states() { return modules_.list(); }

    /// Has a host get ready whose class will be created soon; see HostModules.
    void start_ahead(std::string_view class_name) noexcept { modules_.start_ahead(class_name); }

    /// Ends all hosts, and does not wait for it. Their objects are of no use any more.
    void dismiss_hosts() noexcept { modules_.dismiss_all(); }

    /// What keeps hosts from what is not their business: "Landlock (version 7), seccomp", or "nothing".
    static std::string containment();

    /// Whom to tell how far hosts are: what they do, and per cent. May be empty.
    void on_progress(std::function<void(std::string_view doing, int percent)> told) {
        on_progress_ = std::move(told);
    }

    /// Removes the private folders that killed processes have left behind. Never raises.
    void remove_folders_of_the_dead() const noexcept { PrivateFolder::sweep(options_.temporary_folder); }

    /// Removes the private folder at once, for a process that ends without unwinding; also for a forked
    /// worker whose parent was killed.
    void remove_private_folder() noexcept { private_folder_.remove(); }

    /// Says what this call can do without; it has it all otherwise.
    void expect(const CallNeeds& needs) noexcept { needs_ = needs; }

    /// What the hosts show their user; nothing for nothing.
    const std::optional<hosts::LeftOpen>& left_open() const noexcept { return left_open_; }
    /// Whom to tell what a host has found, and whether he wants to be told of the next place, too. Nobody
    /// while it is empty.
    void on_found(std::function<bool(const hosts::FoundText&)> told) { on_found_ = std::move(told); }

    /// What hosts have not done without raising an error, a sentence each, none of them twice.
    const std::vector<std::string>& failures_told() const noexcept { return failures_told_; }

    // What hosts ask for.
    std::filesystem::path private_folder() const override { return private_folder_.path(); }
    std::optional<std::vector<std::string>> scratch_text(const std::string& path) const override;
    std::uint64_t memory_limit_bytes() const override { return options_.memory_limit_bytes; }
    bool may_read_text() const override { return needs_.text; }
    bool gives_hosts_folders() const override { return needs_.folders; }
    bool takes_turns() const override { return needs_.takes_turns; }
    bool has_printer(std::string_view name) const override { return printers_.has(name); }
    bool is_pdf_printer(std::string_view name) const override { return printers_.is_pdf_printer(name); }
    std::string default_printer() const override { return printers_.default_name(); }
    std::vector<std::string> printer_names() const override { return printers_.names(); }
    void print(std::string_view printer, const std::filesystem::path& pdf, std::string_view title) override;
    void show_progress(std::string_view doing, int percent) override {
        if (on_progress_) on_progress_(doing, percent);
    }
    bool found(const hosts::FoundText& place) override { return on_found_ && on_found_(place); }
    void tell_failure(const std::string& sentence) override;
    void show(hosts::Dialog& dialog) override;
    hosts::HostWindow open_window(std::string caption, std::function<void()> on_close) override;
    void close_window(hosts::HostWindow window) override;
    void show_in_acrobat(const std::filesystem::path& pdf, const std::string& name) override;
    std::optional<hosts::HandedOver> take_handed_over() override;
    hosts::CapturedPage capture_page(const std::string& address) override;
    void leave_open(const std::optional<hosts::LeftOpen>& document) override { left_open_ = document; }
    std::optional<std::string> setting(std::string_view key, std::string_view value) const override;

  private:
    std::filesystem::path library_folder();
    std::filesystem::path make_system_folder();
    hosts::CapturedPage capture_in_browser(const std::string& address);
    void run_sender(std::string_view tail);
    void run_notepad(std::string_view tail);

    LocalOptions options_;
    std::function<void(std::string_view, int)> on_progress_;
    std::function<bool(const hosts::FoundText&)> on_found_;
    // Asking these makes it, or fills what they remember, which is not a change that a host could see.
    mutable PrivateFolder private_folder_;
    mutable RegistryStore store_;
    mutable Printers printers_;
    LocalRegistry registry_;
    LocalFiles files_;
    LocalClock clock_;
    Desktop desktop_;
    LocalPrograms programs_;
    LocalShell shell_;
    HostModules modules_;
    LocalPrinterControl printer_control_;
    std::optional<hosts::LeftOpen> left_open_;
    std::optional<hosts::HandedOver> handed_over_;
    hosts::HostWindow handed_over_window_ = 0;
    std::vector<std::string> failures_told_;
    CallNeeds needs_;
};

}  // namespace foliant::platform::local
