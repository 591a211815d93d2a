#include "platform/local/host_modules.h"

#include <algorithm>
#include <dlfcn.h>
#include <stdexcept>
#include <utility>

#include "automation/error.h"
#include "hosts/containment/containment.h"
#include "hosts/missing_engine.h"

namespace foliant::platform::local {

namespace fs = std::filesystem;
using automation::Error;
using automation::RuntimeError;

namespace {

constexpr const char* entry_name = "foliant_host_module";

Error cannot_create(std::string_view host, const std::string& reason) {
    const std::string usual(automation::usual_description(RuntimeError::cannot_create_object));
    return {RuntimeError::cannot_create_object, usual + ": " + std::string(host) + ". " + reason};
}

/// The same failure, with the usual sentence in front and the host's name, whatever the module called it.
Error as_creation_error(std::string_view host, const Error& error) {
    const std::string& text = error.description();
    if (error.is(RuntimeError::out_of_memory)) return error;  // a limit of the caller's, not a missing engine
    if (error.is(RuntimeError::cannot_create_object) &&
        text.starts_with(automation::usual_description(RuntimeError::cannot_create_object))) {
        return error;
    }
    return cannot_create(host, text);
}

std::string advice(const hosts::Host& host) {
    return host.package.empty() ? std::string()
                                : " Install the package " + std::string(host.package) + " to have it.";
}

std::string absence(const hosts::Host& host) {
    return "There is no engine that stands in for it." +
           (host.instead.empty() ? "" : " " + std::string(host.instead));
}

}  // namespace

HostModules::HostModules(std::vector<fs::path> folders, LinkedModules linked, hosts::Machine& machine,
                         Trouble on_trouble)
    : folders_(std::move(folders)),
      linked_(std::move(linked)),
      machine_(machine),
      on_trouble_(std::move(on_trouble)) {}

void HostModules::tell_shortcomings() {
    if (!on_trouble_) return;
    const std::string sentence = hosts::containment::shortcomings(hosts::containment::offered());
    if (!sentence.empty()) on_trouble_(sentence);
    on_trouble_ = nullptr;
}

automation::ObjectPtr HostModules::create(std::string_view class_name) {
    const hosts::HostClass wanted = hosts::find_class(class_name);
    if (wanted.host == nullptr) throw cannot_create(class_name, "No host on this machine has such a class.");
    const hosts::Host& host = *wanted.host;
    if (host.module.empty()) throw cannot_create(host.name, absence(host));
    tell_shortcomings();
    // What is wrong with it is not said to be the host's fault.
    if (host.contained && machine_.gives_hosts_folders()) machine_.private_folder();
    try {
        automation::ObjectPtr object = host.contained ? process_of(host).create(wanted.name)
                                                      : module_of(host).create(wanted.name, machine_);
        if (object == nullptr) throw std::runtime_error("Its module made no object.");
        return object;
    } catch (const Error& error) {
        throw as_creation_error(host.name, error);
    } catch (const std::exception& problem) {
        throw cannot_create(host.name, problem.what());
    }
}

void HostModules::start_ahead(std::string_view class_name) noexcept {
    try {
        const hosts::HostClass wanted = hosts::find_class(class_name);
        if (wanted.host != nullptr && wanted.host->contained) process_of(*wanted.host);
    } catch (...) {  // NOLINT(bugprone-empty-catch): creating the class meets it, too
    }
}

void HostModules::dismiss_all() noexcept {
    for (const auto& [module, process] : processes_)
        if (process != nullptr) process->dismiss();  // one that could not be started is null
}

/// Starts it where it is not running.
hosts::process::HostProcess& HostModules::process_of(const hosts::Host& host) {
    auto& process = processes_[host.module];
    if (process == nullptr || !process->is_running()) {
        process = std::make_unique<hosts::process::HostProcess>(
            hosts::process::HostProgram{std::string(host.name), std::string(host.engine),
                                        [this, &host]() -> const hosts::Module& { return load(host); },
                                        std::string(host.save_command)},
            machine_);
    }
    return *process;
}

const hosts::Module& HostModules::module_of(const hosts::Host& host) {
    const hosts::Module*& known = loaded_[host.module];
    if (known == nullptr) known = &load(host);
    return *known;
}

const hosts::Module& HostModules::load(const hosts::Host& host) const {
    if (const auto linked = linked_.find(host.module); linked != linked_.end()) return *linked->second();
    const fs::path file = std::string(host.module) + ".so";
    const auto folder = std::find_if(folders_.begin(), folders_.end(), [&](const fs::path& candidate) {
        std::error_code ignored;
        return fs::exists(candidate / file, ignored);
    });
    if (folder == folders_.end()) {
        throw std::runtime_error("Its module hosts/" + file.string() +
                                 " is not there: this installation was built without " +
                                 std::string(host.engine) + ".");
    }
    void* library = ::dlopen((*folder / file).c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) {
        // Said once: asking clears it.
        const std::string reason = ::dlerror();
        const std::string package = hosts::package_of_library(reason);
        if (!package.empty() && package != host.package)
            throw std::runtime_error(std::string(host.engine) + " cannot be used (" + reason +
                                     "). Install or reinstall the package " + package + ".");
        throw std::runtime_error(std::string(host.engine) + " is not installed (" + reason + ")." +
                                 advice(host));
    }
    const auto entry = reinterpret_cast<hosts::ModuleEntry>(::dlsym(library, entry_name));
    const hosts::Module* module = entry == nullptr ? nullptr : entry();
    if (module == nullptr || module->create == nullptr || module->engine_version == nullptr) {
        throw std::runtime_error((*folder / file).string() + " is no host module.");
    }
    return *module;
}

std::vector<HostStatus> HostModules::list() {
    std::vector<HostStatus> states;
    for (const hosts::Host& host : hosts::catalogue()) {
        HostStatus state{std::string(host.name), std::string(host.engine), {}, std::string(host.package), {}};
        try {
            if (host.module.empty()) throw std::runtime_error(absence(host));
            const hosts::Module& module = module_of(host);
            state.version = module.engine_version();
            if (module.shortcomings != nullptr) state.problem = module.shortcomings();
        } catch (...) {
            state.problem = automation::current_error().description();
        }
        states.push_back(std::move(state));
    }
    return states;
}

}  // namespace foliant::platform::local
