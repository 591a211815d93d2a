#include "transfer/ftp.h"

#include <cstdint>

#include "automation/coerce.h"
#include "automation/text.h"
#include "session/errors.h"

namespace foliant::transfer {

using automation::trim_blanks;
using automation::Value;
using session::Session;

namespace {

constexpr std::int16_t ftp_protocol = 2;

/// Tells the control where to go, and returns the address that each command is sent to. A user name stands
/// right before what follows it: with no password that is the host.
std::string address_control(const Value& control, const FtpTransfer& transfer) {
    std::string address = "ftp://";
    const std::string user(trim_blanks(transfer.user));
    const std::string password(trim_blanks(transfer.password));
    control.set("URL", transfer.host);
    if (!user.empty()) {
        control.set("UserName", user);
        address += user;
    }
    if (!password.empty()) {
        control.set("Password", password);
        address += ":" + password + "@";
    }
    address += trim_blanks(transfer.host);
    control.set("Protocol", ftp_protocol);
    return address;
}

void execute(const Session& session, const Value& control, const std::string& address,
             const std::string& command) {
    control.call("Execute", {address, command});
    while (automation::to_bool(control.get("StillExecuting")))
        session.outside().clock.pump_while_waiting();
}

void run(const Session& session, const FtpTransfer& transfer, const std::string& command) {
    const Value control(transfer.control);
    session::with_error_trap(
        [&] {
            const std::string address = address_control(control, transfer);
            if (!trim_blanks(transfer.directory).empty())
                execute(session, control, address, "CD " + transfer.directory);
            execute(session, control, address, command);
        },
        [] {});
}

}  // namespace

void UploadFile(const Session& session, const FtpTransfer& transfer) {
    run(session, transfer, "PUT " + transfer.local_file + " " + transfer.remote_file);
}

void DownloadFile(const Session& session, const FtpTransfer& transfer) {
    run(session, transfer, "GET " + transfer.remote_file + " " + transfer.local_file);
}

}  // namespace foliant::transfer
