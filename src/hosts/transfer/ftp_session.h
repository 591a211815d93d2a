#pragma once

#include <chrono>
#include <cstdint>
#include <curl/curl.h>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace foliant::hosts::transfer {

/// Where a session goes, and who is there.
struct FtpServer {
    std::string host;  ///< a name or an address, with ":PORT" where it is not the usual one
    std::string user;  ///< empty for an anonymous one
    std::string password;

    bool operator==(const FtpServer&) const = default;
};

/// What the server said last: 550, "Failed to open file.".
struct FtpReply {
    int code = 0;
    std::string text;

    bool is_refusal() const noexcept { return code >= 400; }
};

/// One session with an FTP server, with one job at a time, which goes on while `work` is called.
///
/// What the server refuses is no failure: it ends the job, and `refusal` says it. Failures (no such server, a
/// connection that breaks off, nothing heard for two minutes) are raised by `work`.
class FtpSession {
  public:
    /// Connects to nobody yet. Raises 35752 for a host that is none.
    explicit FtpSession(FtpServer server);
    FtpSession(const FtpSession&) = delete;
    FtpSession& operator=(const FtpSession&) = delete;
    ~FtpSession();

    const FtpServer& server() const noexcept { return server_; }

    // Jobs. `what` is what the job is called in an error's text: "GET a.pdf". Names must not hold line ends.

    /// Goes to another folder, for this and later jobs.
    void change_folder(const std::string& folder, std::string what);

    /// Reads up to that many bytes of what is to be sent; 0 at the end. May throw.
    using Source = std::function<std::size_t(char* to, std::size_t most)>;
    void send(Source source, std::uint64_t size, const std::string& remote_file, std::string what);

    /// Takes what was received. May throw.
    using Sink = std::function<void(std::string_view)>;
    void fetch(Sink sink, const std::string& remote_file, std::string what);

    /// Goes on with the job for that long, or until it is over. Whether it is still going on. Raises what went
    /// wrong, also what the job's own function has thrown.
    bool work(std::chrono::milliseconds time);

    /// What the server has refused of the last job; empty when nothing was.
    const std::string& refusal() const noexcept { return refusal_; }
    const FtpReply& reply() const noexcept { return reply_; }

    /// How much of the job is done, 0 to 100; 0 where the server does not tell.
    std::int32_t percent_done() const;

  private:
    struct EasyDeleter {
        void operator()(CURL* handle) const noexcept { curl_easy_cleanup(handle); }
    };
    struct MultiDeleter {
        void operator()(CURLM* handle) const noexcept { curl_multi_cleanup(handle); }
    };
    struct ListDeleter {
        void operator()(curl_slist* list) const noexcept { curl_slist_free_all(list); }
    };

    void prepare(const std::string& remote_file, std::string what);
    void prepare_transfer(const std::string& remote_file, std::string what);
    void begin(std::vector<std::string> commands_before);
    void end(CURLcode result);
    void note_reply(std::string_view line);
    std::string address_of(const std::string& remote_file) const;

    static std::size_t on_reply(char* bytes, std::size_t size, std::size_t count, void* session);
    static std::size_t on_received(char* bytes, std::size_t size, std::size_t count, void* session);
    static std::size_t on_wanted(char* bytes, std::size_t size, std::size_t count, void* session);

    FtpServer server_;
    std::unique_ptr<CURLM, MultiDeleter> multi_;
    std::unique_ptr<CURL, EasyDeleter> easy_;
    std::unique_ptr<curl_slist, ListDeleter> commands_;
    bool is_running_ = false;
    std::string what_;
    Source source_;
    Sink sink_;
    std::exception_ptr own_failure_;  ///< what the job's function has thrown
    FtpReply reply_;
    std::string refusal_;
    std::string wanted_folder_;  ///< of the change that is going on
    std::string folder_;         ///< where the server has put it, absolute; empty before any change
};

}  // namespace foliant::hosts::transfer
