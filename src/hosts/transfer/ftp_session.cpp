#include "hosts/transfer/ftp_session.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <new>
#include <utility>

#include "hosts/transfer/curl_start.h"
#include "hosts/transfer/inet_error.h"

namespace foliant::hosts::transfer {

namespace {

constexpr long connecting_seconds = 60;
constexpr long silent_seconds = 120;
constexpr long buffer_bytes = 512L * 1024;
constexpr int went_to_folder = 257;  // the reply to PWD

template <class Value>
void set(CURL* handle, CURLoption option, Value value) {
    if (const CURLcode result = curl_easy_setopt(handle, option, value); result != CURLE_OK)
        throw inet_error(InetError::cannot_complete,
                         std::string("libcurl: ") + curl_easy_strerror(result) + ".");
}

std::string escaped(CURL* handle, std::string_view part) {
    if (part.empty()) return {};
    char* text = curl_easy_escape(handle, part.data(), static_cast<int>(part.size()));
    if (text == nullptr) throw std::bad_alloc();
    std::string result(text);
    curl_free(text);
    return result;
}

/// Of a folder there would come a list of what is in it.
bool names_folder(std::string_view remote_file) {
    const std::string_view last = remote_file.substr(remote_file.rfind('/') + 1);
    return last.empty() || last == "." || last == "..";
}

/// The folder in the reply to PWD: what stands in quotation marks, in which two of them stand for one.
std::string quoted_folder(std::string_view reply) {
    const std::size_t begin = reply.find('"');
    if (begin == std::string_view::npos) return {};
    std::string folder;
    for (std::size_t i = begin + 1; i < reply.size(); ++i) {
        if (reply[i] == '"') {
            ++i;
            if (i == reply.size() || reply[i] != '"') return folder;
        }
        folder.push_back(reply[i]);
    }
    return {};
}

/// Whether the library says so because the server has said no.
bool is_refusal(CURLcode result) {
    constexpr std::array refusals{
        CURLE_QUOTE_ERROR,          CURLE_REMOTE_ACCESS_DENIED,  CURLE_FTP_COULDNT_RETR_FILE,
        CURLE_UPLOAD_FAILED,        CURLE_REMOTE_FILE_NOT_FOUND, CURLE_LOGIN_DENIED,
        CURLE_REMOTE_DISK_FULL,     CURLE_REMOTE_FILE_EXISTS,    CURLE_FTP_WEIRD_SERVER_REPLY,
        CURLE_FTP_WEIRD_PASS_REPLY, CURLE_FTP_COULDNT_SET_TYPE,  CURLE_PARTIAL_FILE};
    return std::find(refusals.begin(), refusals.end(), result) != refusals.end();
}

bool is_host(const std::string& host) {
    const bool has_control = std::ranges::any_of(host, [](unsigned char c) { return c < ' ' || c == 0x7F; });
    return !host.empty() && !has_control && host.find_first_of(" /@?#\\\"") == std::string::npos;
}

std::string login_name(const std::string& user) {
    return user.empty() ? "anonymous" : user;
}

InetError number_of(CURLcode result) {
    switch (result) {
        case CURLE_COULDNT_RESOLVE_HOST:
        case CURLE_COULDNT_CONNECT:
            return InetError::cannot_connect;
        case CURLE_OPERATION_TIMEDOUT:
        case CURLE_FTP_ACCEPT_TIMEOUT:
            return InetError::timed_out;
        case CURLE_URL_MALFORMAT:
            return InetError::malformed_url;
        default:
            return InetError::cannot_complete;
    }
}

}  // namespace

FtpSession::FtpSession(FtpServer server) : server_(std::move(server)) {
    start_curl();
    multi_.reset(curl_multi_init());
    easy_.reset(curl_easy_init());
    if (multi_ == nullptr || easy_ == nullptr) throw std::bad_alloc();
    if (!is_host(server_.host))
        throw inet_error(InetError::malformed_url,
                         "\"" + server_.host +
                             "\" is no name of a server. Give a "
                             "host name or an address, with :PORT behind it if need be.");
}

FtpSession::~FtpSession() {
    if (is_running_) curl_multi_remove_handle(multi_.get(), easy_.get());
}

/// A name that begins at the root says so by an escaped "/"; every other one begins in the folder.
std::string FtpSession::address_of(const std::string& remote_file) const {
    std::string address = "ftp://" + server_.host + "/";
    std::string_view rest = remote_file;
    if (rest.starts_with('/')) {
        address += "%2F";
        rest.remove_prefix(1);
    }
    while (true) {
        const std::size_t slash = rest.find('/');
        address += escaped(easy_.get(), rest.substr(0, slash));
        if (slash == std::string_view::npos) return address;
        address += '/';
        rest.remove_prefix(slash + 1);
    }
}

void FtpSession::prepare(const std::string& remote_file, std::string what) {
    what_ = std::move(what);
    source_ = {};
    sink_ = {};
    own_failure_ = {};
    reply_ = {};
    refusal_.clear();
    wanted_folder_.clear();
    CURL* const handle = easy_.get();
    curl_easy_reset(handle);  // connections stay
    set(handle, CURLOPT_URL, address_of(remote_file).c_str());
    set(handle, CURLOPT_PATH_AS_IS, 1L);  // "../a.txt" is not "a.txt"
    set(handle, CURLOPT_PROTOCOLS_STR, "ftp");
    if (!server_.user.empty()) set(handle, CURLOPT_USERNAME, server_.user.c_str());
    if (!server_.password.empty()) set(handle, CURLOPT_PASSWORD, server_.password.c_str());
    set(handle, CURLOPT_PROXY, "");
    set(handle, CURLOPT_NOSIGNAL, 1L);
    set(handle, CURLOPT_CONNECTTIMEOUT, connecting_seconds);
    set(handle, CURLOPT_SERVER_RESPONSE_TIMEOUT, silent_seconds);
    set(handle, CURLOPT_LOW_SPEED_LIMIT, 1L);
    set(handle, CURLOPT_LOW_SPEED_TIME, silent_seconds);
    set(handle, CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
    set(handle, CURLOPT_HEADERFUNCTION, &FtpSession::on_reply);
    set(handle, CURLOPT_HEADERDATA, this);
    set(handle, CURLOPT_WRITEFUNCTION, &FtpSession::on_received);
    set(handle, CURLOPT_WRITEDATA, this);
    set(handle, CURLOPT_READFUNCTION, &FtpSession::on_wanted);
    set(handle, CURLOPT_READDATA, this);
    set(handle, CURLOPT_BUFFERSIZE, buffer_bytes);
    set(handle, CURLOPT_UPLOAD_BUFFERSIZE, buffer_bytes);
}

void FtpSession::begin(std::vector<std::string> commands_before) {
    curl_slist* list = nullptr;
    for (const std::string& command : commands_before)
        list = curl_slist_append(list, command.c_str());
    commands_.reset(list);
    set(easy_.get(), CURLOPT_QUOTE, commands_.get());
    if (curl_multi_add_handle(multi_.get(), easy_.get()) != CURLM_OK) throw std::bad_alloc();
    is_running_ = true;
}

void FtpSession::change_folder(const std::string& folder, std::string what) {
    prepare("", std::move(what));
    wanted_folder_ = folder;
    set(easy_.get(), CURLOPT_NOBODY, 1L);
    // A folder is relative to the one before. That a server does not tell where it is, is no failure.
    begin(folder_.empty() ? std::vector<std::string>{"CWD " + folder, "*PWD"}
                          : std::vector<std::string>{"CWD " + folder_, "CWD " + folder, "*PWD"});
}

void FtpSession::prepare_transfer(const std::string& remote_file, std::string what) {
    if (names_folder(remote_file))
        throw inet_error(InetError::cannot_complete,
                         what + " with " + server_.host + " was not begun: that is a folder and no file.");
    prepare(remote_file, std::move(what));
}

void FtpSession::send(Source source, std::uint64_t size, const std::string& remote_file, std::string what) {
    prepare_transfer(remote_file, std::move(what));
    source_ = std::move(source);
    set(easy_.get(), CURLOPT_UPLOAD, 1L);
    set(easy_.get(), CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(size));
    begin(folder_.empty() ? std::vector<std::string>{} : std::vector<std::string>{"CWD " + folder_});
}

void FtpSession::fetch(Sink sink, const std::string& remote_file, std::string what) {
    prepare_transfer(remote_file, std::move(what));
    sink_ = std::move(sink);
    begin(folder_.empty() ? std::vector<std::string>{} : std::vector<std::string>{"CWD " + folder_});
}

bool FtpSession::work(std::chrono::milliseconds time) {
    const auto deadline = std::chrono::steady_clock::now() + time;
    while (is_running_) {
        int running = 0;
        if (curl_multi_perform(multi_.get(), &running) != CURLM_OK) throw std::bad_alloc();
        int left = 0;
        while (const CURLMsg* message = curl_multi_info_read(multi_.get(), &left))
            if (message->msg == CURLMSG_DONE) end(message->data.result);
        const auto now = std::chrono::steady_clock::now();
        if (!is_running_ || now >= deadline) break;
        const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - now);
        curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(std::max<std::int64_t>(rest.count(), 1)),
                        nullptr);
    }
    return is_running_;
}

void FtpSession::end(CURLcode result) {
    is_running_ = false;
    curl_multi_remove_handle(multi_.get(), easy_.get());
    if (own_failure_) std::rethrow_exception(std::exchange(own_failure_, nullptr));
    if (result == CURLE_OK) {
        if (!wanted_folder_.empty()) {
            const char* entry = nullptr;
            curl_easy_getinfo(easy_.get(), CURLINFO_FTP_ENTRY_PATH, &entry);
            const std::string before = !folder_.empty() ? folder_ : entry != nullptr ? entry : "";
            if (reply_.code == went_to_folder && !quoted_folder(reply_.text).empty())
                folder_ = quoted_folder(reply_.text);
            else
                folder_ = wanted_folder_.starts_with('/') ? wanted_folder_ : before + "/" + wanted_folder_;
        }
        return;
    }
    if (reply_.is_refusal() && is_refusal(result)) {
        refusal_ = "The server refused " +
                   (result == CURLE_LOGIN_DENIED ? "the login of " + login_name(server_.user) : what_) +
                   ": " + std::to_string(reply_.code) + " " + reply_.text;
        return;
    }
    throw inet_error(number_of(result), what_ + " with " + server_.host +
                                            " was not completed: " + curl_easy_strerror(result) + ".");
}

/// The last line of a reply has a blank behind its number; those before it have not.
void FtpSession::note_reply(std::string_view line) {
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
        line.remove_suffix(1);
    int code = 0;
    const std::string_view number = line.substr(0, 3);
    const bool is_last = line.size() >= 4 && line[3] == ' ' &&
                         std::from_chars(number.begin(), number.end(), code).ptr == number.end();
    if (is_last) reply_ = {code, std::string(line.substr(4))};
}

std::int32_t FtpSession::percent_done() const {
    curl_off_t total = 0;
    curl_off_t done = 0;
    const bool sends = static_cast<bool>(source_);
    curl_easy_getinfo(easy_.get(),
                      sends ? CURLINFO_CONTENT_LENGTH_UPLOAD_T : CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &total);
    curl_easy_getinfo(easy_.get(), sends ? CURLINFO_SIZE_UPLOAD_T : CURLINFO_SIZE_DOWNLOAD_T, &done);
    return total > 0 ? static_cast<std::int32_t>(std::min<curl_off_t>(done * 100 / total, 100)) : 0;
}

std::size_t FtpSession::on_reply(char* bytes, std::size_t size, std::size_t count, void* session) {
    static_cast<FtpSession*>(session)->note_reply({bytes, size * count});
    return size * count;
}

std::size_t FtpSession::on_received(char* bytes, std::size_t size, std::size_t count, void* session) {
    auto& self = *static_cast<FtpSession*>(session);
    try {
        if (self.sink_) self.sink_({bytes, size * count});
        return size * count;
    } catch (...) {
        self.own_failure_ = std::current_exception();
        return 0;
    }
}

std::size_t FtpSession::on_wanted(char* bytes, std::size_t size, std::size_t count, void* session) {
    auto& self = *static_cast<FtpSession*>(session);
    try {
        return self.source_ ? self.source_(bytes, size * count) : 0;
    } catch (...) {
        self.own_failure_ = std::current_exception();
        return CURL_READFUNC_ABORT;
    }
}

}  // namespace foliant::hosts::transfer
