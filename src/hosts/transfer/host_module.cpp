#include <curl/curl.h>
#include <string>

#include "automation/text.h"
#include "hosts/catalogue.h"
#include "hosts/containment/usual_files.h"
#include "hosts/module.h"
#include "hosts/transfer/inet_control.h"
#include "hosts/transfer/inet_error.h"
#include "hosts/transfer/page_fetcher.h"
#include "registered/classes.h"

namespace foliant::hosts::transfer {
namespace {

automation::ObjectPtr create(std::string_view class_name, Machine& machine) {
    if (automation::equal_ignoring_case(class_name, registered::transfer_control))
        return make_inet_control(machine);
    if (class_name == page_fetcher) return make_page_fetcher(machine);
    throw automation::Error(static_cast<std::int32_t>(automation::RuntimeError::cannot_create_object),
                            control_name, "libcurl stands in for no class " + std::string(class_name) + ".");
}

/// What is sent and received comes as an open file; besides that it is only asked where servers are, and who
/// vouches for them.
containment::Policy policy(const std::filesystem::path& folder) {
    using namespace containment;
    const Paths names{"/etc/hosts",           "/etc/resolv.conf",     "/etc/nsswitch.conf",
                      "/etc/host.conf",       "/etc/gai.conf",        "/etc/services",
                      "/run/systemd/resolve", "/etc/ssl/openssl.cnf", "/etc/ssl/certs"};
    return {.may_read = system_libraries() + locales() + names + empty_devices(),
            .may_write = {folder, "/dev/null"},
            .may_start = {},
            .may_connect = true,
            .limits = {}};
}

constexpr Module module = {[] { return std::string(curl_version_info(CURLVERSION_NOW)->version); }, create,
                           policy};

}  // namespace
}  // namespace foliant::hosts::transfer

extern "C" __attribute__((visibility("default"))) const foliant::hosts::Module* foliant_host_module() {
    return &foliant::hosts::transfer::module;
}
