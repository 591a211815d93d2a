#include "hosts/transfer/inet_control.h"

#include <cerrno>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "automation/coerce.h"
#include "automation/text.h"
#include "hosts/late_bound.h"
#include "hosts/transfer/ftp_session.h"
#include "hosts/transfer/inet_error.h"
#include "hosts/transfer_command.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::transfer {

using automation::to_text;
using automation::trim_blanks;
using automation::Value;

namespace {

constexpr std::int32_t ftp_protocol = 2;
constexpr std::chrono::milliseconds a_while{100};

std::size_t read_from(int descriptor, char* to, std::size_t most) {
    while (true) {
        const ssize_t got = ::read(descriptor, to, most);
        if (got >= 0) return static_cast<std::size_t>(got);
        if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "cannot read the file");
    }
}

/// They would begin another command of the session.
void refuse_line_ends(std::string_view text, const std::string& what) {
    if (text.find_first_of(std::string_view("\r\n\0", 3)) != std::string_view::npos)
        throw inet_error(InetError::invalid_command, "A " + what + " must not hold line ends.");
}

/// What one control has been told, and the session that comes of it.
class Inet {
  public:
    explicit Inet(Machine& machine) : machine_(machine) {}

    std::string url;
    std::string user;
    std::string password;
    std::int32_t protocol = ftp_protocol;

    void execute(const std::string& address, const std::string& command);
    bool still_executing();
    std::int32_t percent_done() const { return session_ == nullptr ? 0 : session_->percent_done(); }

    std::int32_t response_code = 0;  ///< of the first command that was refused
    std::string response_info;

  private:
    FtpSession& session_for(const std::string& address);
    void put(FtpSession& session, const TransferCommand& command, const std::string& what);
    void get(FtpSession& session, const TransferCommand& command, const std::string& what);

    Machine& machine_;
    std::unique_ptr<FtpSession> session_;
    bool is_executing_ = false;
    DocumentFile document_;               ///< that is sent
    std::unique_ptr<OutputFile> output_;  ///< that is received
    std::string output_path_;
};

/// The server that `URL` names; where nobody has set it, the one in the address of a command.
std::string host_in(const std::string& url, const std::string& address) {
    std::string_view text = trim_blanks(url).empty() ? trim_blanks(address) : trim_blanks(url);
    constexpr std::string_view scheme = "ftp://";
    if (automation::to_lower(text.substr(0, scheme.size())) == scheme) text.remove_prefix(scheme.size());
    if (const std::size_t at = text.rfind('@'); at != std::string_view::npos) text.remove_prefix(at + 1);
    while (text.ends_with('/'))
        text.remove_suffix(1);
    return std::string(text);
}

FtpSession& Inet::session_for(const std::string& address) {
    FtpServer server{host_in(url, address), user, password};
    if (server.host.empty())
        throw inet_error(InetError::no_remote_computer, "There is no server to go to: name one.");
    if (session_ == nullptr || session_->server() != server)
        session_ = std::make_unique<FtpSession>(std::move(server));
    return *session_;
}

void Inet::put(FtpSession& session, const TransferCommand& command, const std::string& what) {
    try {
        document_ = machine_.open_document(command.local_file, DocumentAccess::open_file);
    } catch (const std::filesystem::filesystem_error& failure) {
        throw automation::Error(failure.code().value() == ENOENT
                                    ? automation::RuntimeError::file_not_found
                                    : automation::RuntimeError::permission_denied,
                                "Cannot send " + command.local_file + ": " + failure.code().message() + ".");
    }
    const int descriptor = document_.descriptor.get();
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) throw std::system_error(errno, std::generic_category());
    session.send([descriptor](char* to, std::size_t most) { return read_from(descriptor, to, most); },
                 static_cast<std::uint64_t>(status.st_size), command.remote_file, what);
}

void Inet::get(FtpSession& session, const TransferCommand& command, const std::string& what) {
    try {
        output_ = machine_.make_output(command.local_file);
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(control_name, failure);
    }
    output_path_ = command.local_file;
    session.fetch([this](std::string_view bytes) { output_->write(bytes); }, command.remote_file, what);
}

void Inet::execute(const std::string& address, const std::string& command) {
    if (is_executing_) throw inet_error(InetError::still_executing, "Still executing last request.");
    if (protocol != ftp_protocol)
        throw inet_error(InetError::invalid_command,
                         "Only FTP is spoken here: Protocol is 2, not " + std::to_string(protocol) + ".");
    refuse_line_ends(command, "name");
    refuse_line_ends(user, "user name");
    refuse_line_ends(password, "password");
    if (response_code != 0) return;
    machine_.be_contained();
    FtpSession& session = session_for(address);
    if (const auto readings = transfer_readings(command); readings.size() > 1) {
        throw inet_error(InetError::invalid_command,
                         "Which two files are meant cannot be told: put both names in quotation marks.");
    } else if (!readings.empty()) {
        const TransferCommand& transfer = readings.front();
        const bool puts = transfer.verb == TransferCommand::Verb::put;
        const std::string what = (puts ? "PUT " : "GET ") + transfer.remote_file;
        puts ? put(session, transfer, what) : get(session, transfer, what);
    } else if (automation::to_lower(command.substr(0, 3)) == "cd ") {
        session.change_folder(std::string(trim_blanks(std::string_view(command).substr(3))), command);
    } else {
        throw inet_error(InetError::invalid_command,
                         "The commands are CD folder, PUT local remote and GET remote local.");
    }
    is_executing_ = true;
}

bool Inet::still_executing() {
    if (!is_executing_) return false;
    is_executing_ = false;  // also when something is raised
    try {
        if (session_->work(a_while)) return is_executing_ = true;
        if (session_->refusal().empty()) {
            if (output_ != nullptr) output_->commit();
        } else {
            response_code = session_->reply().code;
            response_info = session_->refusal();
        }
    } catch (const std::filesystem::filesystem_error& failure) {
        output_.reset();
        throw write_failure(control_name, failure);
    } catch (...) {
        output_.reset();
        throw;
    }
    output_.reset();
    document_ = {};
    return false;
}

}  // namespace

automation::ObjectPtr make_inet_control(Machine& machine) {
    const auto inet = std::make_shared<Inet>(machine);
    auto control = std::make_shared<LateBound>(control_name);
    const auto add_text = [&](std::string_view name, std::string Inet::*text) {
        control->add_property(
            name, [inet, text] { return Value((*inet).*text); },
            [inet, text](const Value& value) { (*inet).*text = to_text(value); });
    };
    add_text("URL", &Inet::url);
    add_text("UserName", &Inet::user);
    add_text("Password", &Inet::password);
    control->add_property(
        "Protocol", [inet] { return inet->protocol; },
        [inet](const Value& value) { inet->protocol = automation::to_int32(value); });
    control->add_method("Execute", {"URL", "Operation"}, [inet](const Bound& arguments) {
        inet->execute(to_text(arguments[0]), to_text(arguments[1]));
        return Value();
    });
    control->add_property("StillExecuting", [inet] { return inet->still_executing(); });
    control->add_property("ResponseCode", [inet] { return inet->response_code; });
    control->add_property("ResponseInfo", [inet] { return inet->response_info; });
    control->add_property("PercentDone", [inet] { return inet->percent_done(); });
    return control;
}

}  // namespace foliant::hosts::transfer
