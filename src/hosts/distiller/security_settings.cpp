#include "hosts/distiller/security_settings.h"

#include <string>
#include <string_view>

#include "automation/error.h"
#include "registered/keys.h"

namespace foliant::hosts::distiller {
namespace {

std::string password(const Machine& machine, std::string_view name) {
    return machine.setting(registered::distiller_security_key, name).value_or("");
}

bool permission(const Machine& machine, std::string_view name, bool otherwise) {
    const auto text = machine.setting(registered::distiller_security_key, name);
    if (!text) return otherwise;
    if (*text == "1") return true;
    if (*text == "0") return false;
    throw automation::Error(automation::RuntimeError::type_mismatch,
                            "The Distiller security setting " + std::string(name) + " is \"" + *text +
                                "\". Set it to 1 (allowed) or 0 (not allowed) under " +
                                std::string(registered::distiller_security_key) + ".");
}

}  // namespace

Security security_settings(const Machine& machine) {
    Security security;
    security.open_password = password(machine, "OpenPassword");
    security.owner_password = password(machine, "OwnerPassword");
    security.allow_printing = permission(machine, "AllowPrinting", security.allow_printing);
    security.allow_accessibility = permission(machine, "AllowAccessibility", security.allow_accessibility);
    security.allow_copying = permission(machine, "AllowCopying", security.allow_copying);
    security.allow_changing = permission(machine, "AllowChanging", security.allow_changing);
    return security;
}

}  // namespace foliant::hosts::distiller
