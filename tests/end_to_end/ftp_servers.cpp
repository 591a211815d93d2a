#include "end_to_end/ftp_servers.h"

#include <arpa/inet.h>
#include <csignal>
#include <fcntl.h>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace foliant::end_to_end {

namespace fs = std::filesystem;

namespace {

constexpr const char* program = "/usr/sbin/vsftpd";

sockaddr_in loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

/// A socket that listens on any free port.
int listen_anywhere() {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(0);
    ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    ::listen(socket, 1);
    return socket;
}

int port_of(int socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

bool answers_on(int port) {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(port);
    const bool connected =
        ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return connected;
}

std::string configuration(const fs::path& folder, int port) {
    const auto path = [&](const char* name) { return (folder / name).string() + "\n"; };
    return "background=NO\nlisten=YES\nlisten_address=127.0.0.1\nlisten_port=" + std::to_string(port) +
           "\nanonymous_enable=YES\nlocal_enable=NO\nwrite_enable=YES\nanon_upload_enable=YES\n"
           "anon_world_readable_only=NO\nanon_umask=022\nxferlog_enable=NO\n"
           "seccomp_sandbox=NO\nisolate=NO\nisolate_network=NO\nanon_root=" +
           path("root") + "secure_chroot_dir=" + path("empty") +
           "secure_email_list_enable=YES\nemail_password_file=" + path("passwords");
}

}  // namespace

VsFtpd::VsFtpd() {
    const passwd* const user = ::getpwnam("ftp");
    if (::access(program, X_OK) != 0 || user == nullptr) {
        problem_ = "install the package vsftpd";
        return;
    }
    if (::geteuid() != 0) {
        problem_ = "vsftpd locks its users in, which only the superuser may";
        return;
    }
    fs::permissions(folder_.path(), fs::perms(0711));
    for (const char* name : {"empty", "root", "root/pub"})
        fs::create_directory(folder_ / name);
    [[maybe_unused]] const int given = ::chown(folder().c_str(), user->pw_uid, user->pw_gid);
    folder_.write("passwords", "open sesame\n");
    const int probe = listen_anywhere();
    port_ = port_of(probe);
    ::close(probe);
    const std::string file = folder_.write("vsftpd.conf", configuration(folder_.path(), port_)).string();
    process_ = ::fork();
    if (process_ == 0) {
        ::setpgid(0, 0);  // with the processes of its sessions
        ::execl(program, program, file.c_str(), nullptr);
        ::_exit(127);
    }
    for (int i = 0; i < 500 && !answers_on(port_); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

VsFtpd::~VsFtpd() {
    if (process_ <= 0) return;
    ::kill(-process_, SIGTERM);
    ::waitpid(process_, nullptr, 0);
}

OddFtpServer::OddFtpServer(std::function<void(int)> on_retrieve)
    : on_retrieve_(std::move(on_retrieve)), listener_(listen_anywhere()), port_(port_of(listener_)) {
    thread_ = std::thread([this] { serve(); });
}

OddFtpServer::~OddFtpServer() {
    ::shutdown(listener_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
}

void OddFtpServer::serve() {
    const int control = ::accept(listener_, nullptr, nullptr);
    if (control < 0) return;
    const auto say = [&](const std::string& line) {
        [[maybe_unused]] const ssize_t sent =
            ::send(control, (line + "\r\n").data(), line.size() + 2, MSG_NOSIGNAL);
    };
    say("220 ready");
    const int data_listener = listen_anywhere();
    std::string heard;
    char bytes[512];
    for (ssize_t got = 0; (got = ::recv(control, bytes, sizeof bytes, 0)) > 0;) {
        heard.append(bytes, static_cast<std::size_t>(got));
        for (std::size_t end = heard.find("\r\n"); end != std::string::npos; end = heard.find("\r\n")) {
            const std::string verb = heard.substr(0, heard.find_first_of(" \r"));
            heard.erase(0, end + 2);
            if (verb == "USER")
                say("230 come in");
            else if (verb == "PWD")
                say("257 \"/\"");
            else if (verb == "EPSV")
                say("229 here (|||" + std::to_string(port_of(data_listener)) + "|)");
            else if (verb == "SIZE")
                say("213 1000");
            else if (verb == "RETR") {
                say("150 here it comes");
                const int data = ::accept(data_listener, nullptr, nullptr);
                on_retrieve_(data);
                ::close(data);
                ::shutdown(control, SHUT_RDWR);
            } else
                say("200 as you like");
        }
    }
    ::close(data_listener);
    ::close(control);
}

}  // namespace foliant::end_to_end
