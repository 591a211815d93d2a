#include <iostream>
#include <nlohmann/json.hpp>

#include "automation/error.h"
#include "automation/text.h"
#include "cli/exit_codes.h"
#include "cli/report.h"
#include "cli/tools.h"
#include "cli/visible_text.h"

namespace foliant::cli {

using automation::Error;
using automation::RuntimeError;
using nlohmann::ordered_json;
using platform::local::LocalMachine;
using platform::local::RegistryStore;
using platform::local::StoredValue;

namespace {

constexpr const char* hidden = "***";

bool is_secret(std::string_view name) {
    return automation::to_lower(name).find("password") != std::string::npos;
}

/// A value of any type as text; bytes of other types as hexadecimal.
std::string shown(const std::string& name, const StoredValue& value) {
    if (is_secret(name)) return hidden;
    if (const auto text = value.text()) return *text;
    std::string bytes;
    for (const char byte : value.data) {
        constexpr char digits[] = "0123456789ABCDEF";
        const auto bits = static_cast<unsigned char>(byte);
        bytes += {digits[bits >> 4U], digits[bits & 0xFU], ' '};
    }
    return bytes + "(type " + std::to_string(value.type) + ")";
}

ordered_json to_json(const RegistryStore::Entry& entry) {
    return {{"key", entry.key},
            {"name", entry.name},
            {"type", entry.value.type},
            {"value", shown(entry.name, entry.value)},
            {"builtIn", entry.is_default}};
}

void print(const ordered_json& json) {
    std::cout << json.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
}

int list(RegistryStore& registry, bool as_json) {
    auto values = ordered_json::array();
    std::string key;
    if (!as_json) std::cout << "Settings file: " << visible_line(registry.file().string()) << '\n';
    for (const auto& entry : registry.list()) {
        values.push_back(to_json(entry));
        if (as_json) continue;
        if (entry.key != key) std::cout << '\n' << visible_line(entry.key) << '\n';
        key = entry.key;
        std::cout << "  " << (entry.name.empty() ? "(default)" : visible_line(entry.name)) << " = "
                  << visible_line(shown(entry.name, entry.value)) << (entry.is_default ? "   [built in]" : "")
                  << '\n';
    }
    if (as_json) print({{"file", registry.file().string()}, {"values", values}});
    return exit_success;
}

Error no_such_value(const std::vector<std::string>& words) {
    return {RuntimeError::file_not_found, "There is no value \"" + words[1] + "\" in the key \"" + words[0] +
                                              "\". \"foliant registry list\" shows what there is."};
}

int get(const Request& request, RegistryStore& registry) {
    const auto value = registry.get(request.words[0], request.words[1]);
    if (!value) throw no_such_value(request.words);
    if (request.options.json) {
        print(to_json({request.words[0], request.words[1], *value, false}));
    } else {
        std::cout << visible_line(shown(request.words[1], *value)) << '\n';
    }
    return exit_success;
}

int remove(const std::vector<std::string>& words, RegistryStore& registry) {
    if (!registry.remove(words[0], words[1])) throw no_such_value(words);
    if (const auto usual = RegistryStore::built_in(words[0], words[1])) {
        std::cerr << visible_line("Removed. The built-in value was \"" + shown(words[1], *usual) +
                                  "\"; \"foliant registry reset\" with the same words brings it back.")
                  << '\n';
    }
    return exit_success;
}

int run(const Request& request, RegistryStore& registry) {
    const auto& words = request.words;
    switch (request.action) {
        case Request::Action::registry_get:
            return get(request, registry);
        case Request::Action::registry_set:
            registry.set(words[0], words[1], StoredValue::of_text(words[2]));
            return exit_success;
        case Request::Action::registry_remove:
            return remove(words, registry);
        case Request::Action::registry_reset:
            if (!registry.reset(words[0], words[1]))
                std::cerr << "Nothing to bring back: it is as built in.\n";
            return exit_success;
        default:
            return list(registry, request.options.json);
    }
}

}  // namespace

int run_registry(const Request& request, LocalMachine& machine) {
    try {
        return run(request, machine.registry());
    } catch (const Error& error) {
        if (request.options.json) std::cout << json_error(nullptr, error, exit_failure);
        std::cerr << error_text(error);
        return exit_failure;
    }
}

}  // namespace foliant::cli
