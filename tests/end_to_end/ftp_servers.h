#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <sys/types.h>
#include <thread>

#include "support/scratch_folder.h"

namespace foliant::end_to_end {

/// vsftpd on a port of the loopback interface, for the user "ftp" with the password "open sesame". It sees a
/// folder of its own, in which "pub" may be written, and ends with this object.
class VsFtpd {
  public:
    VsFtpd();
    VsFtpd(const VsFtpd&) = delete;
    VsFtpd& operator=(const VsFtpd&) = delete;
    ~VsFtpd();

    /// Why it cannot run here; "" when it does.
    const std::string& problem() const { return problem_; }
    /// "127.0.0.1:40123".
    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }
    /// What users see as "/pub".
    std::filesystem::path folder() const { return folder_ / "root" / "pub"; }

  private:
    tests::ScratchFolder folder_;
    std::string problem_;
    int port_ = 0;
    pid_t process_ = -1;
};

/// A server that lets anybody in, and then does something else than what it should with a file that is asked
/// for. It serves one session.
class OddFtpServer {
  public:
    /// `on_retrieve` gets the open data connection; what it has sent is all that is sent.
    explicit OddFtpServer(std::function<void(int data)> on_retrieve);
    OddFtpServer(const OddFtpServer&) = delete;
    OddFtpServer& operator=(const OddFtpServer&) = delete;
    ~OddFtpServer();

    std::string address() const { return "127.0.0.1:" + std::to_string(port_); }

  private:
    void serve();

    std::function<void(int)> on_retrieve_;
    int listener_;
    int port_ = 0;
    std::thread thread_;
};

}  // namespace foliant::end_to_end
