#include "hosts/transfer/page_fetcher.h"

#include <array>
#include <cerrno>
#include <curl/curl.h>
#include <new>
#include <string_view>
#include <unistd.h>

#include "automation/coerce.h"
#include "automation/text.h"
#include "hosts/late_bound.h"
#include "hosts/transfer/curl_start.h"
#include "hosts/transfer/plain_page.h"

namespace foliant::hosts::transfer {

using automation::to_text;
using automation::Value;

namespace {

constexpr const char* fetcher_name = "Web capture";
constexpr std::size_t largest_page = std::size_t{64} << 20U;  // bytes
constexpr long most_redirections = 20;
constexpr long first_refusal = 400;

void require_size(std::size_t size) {
    if (size > largest_page) throw page_error("it is larger than 64 MiB");
}

struct CurlDeleter {
    void operator()(CURL* handle) const noexcept { curl_easy_cleanup(handle); }
    void operator()(CURLU* address) const noexcept { curl_url_cleanup(address); }
};

/// Where links of the page begin: who has fetched it, and by which password, is in none of them.
std::string without_user(const char* address) {
    const std::unique_ptr<CURLU, CurlDeleter> parts(curl_url());
    if (!parts || curl_url_set(parts.get(), CURLUPART_URL, address, 0) != CURLUE_OK) return "";
    for (const CURLUPart part : {CURLUPART_USER, CURLUPART_PASSWORD, CURLUPART_FRAGMENT})
        curl_url_set(parts.get(), part, nullptr, 0);
    char* text = nullptr;
    if (curl_url_get(parts.get(), CURLUPART_URL, &text, 0) != CURLUE_OK) return "";
    std::string result(text);
    curl_free(text);
    return result;
}

/// "text/html; charset=utf-8", taken apart.
void read_content_type(FetchedPage& page, std::string_view header) {
    constexpr std::string_view name = "charset=";
    const std::string text = automation::to_lower(header);
    page.type = automation::trim_blanks(std::string_view(text).substr(0, text.find(';')));
    const std::size_t at = text.find(name);
    if (at == std::string::npos) return;
    std::string_view charset = std::string_view(text).substr(at + name.size());
    charset = charset.substr(0, charset.find(';'));
    for (const char letter : charset)
        if (letter != '"' && letter != ' ') page.charset += letter;
}

std::size_t receive(char* bytes, std::size_t size, std::size_t count, void* body) noexcept {
    auto& text = *static_cast<std::string*>(body);
    if (text.size() + size * count > largest_page + 1) return 0;
    text.append(bytes, size * count);
    return size * count;
}

/// What the library has to say of a failure.
using Complaint = std::array<char, CURL_ERROR_SIZE>;

void prepare(CURL* handle, const std::string& address, std::chrono::milliseconds patience, std::string& body,
             Complaint& complaint) {
    curl_easy_setopt(handle, CURLOPT_URL, address.c_str());
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_MAXREDIRS, most_redirections);
    curl_easy_setopt(handle, CURLOPT_ACCEPT_ENCODING, "");
    curl_easy_setopt(handle, CURLOPT_USERAGENT, "Mozilla/5.0 (X11; Linux) Foliant");
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, static_cast<long>(patience.count()));
    curl_easy_setopt(handle, CURLOPT_ERRORBUFFER, complaint.data());
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, receive);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
}

/// "SSL certificate problem: self-signed certificate"
[[noreturn]] void refuse_certificate(std::string_view complaint) {
    const std::size_t colon = complaint.find(": ");
    const std::string_view reason = colon == std::string_view::npos ? complaint : complaint.substr(colon + 2);
    throw page_error("its server's certificate is not trusted (" + std::string(reason) + ")");
}

FetchedPage fetched(const std::string& address, std::chrono::milliseconds patience) {
    start_curl();
    const std::unique_ptr<CURL, CurlDeleter> handle(curl_easy_init());
    if (!handle) throw std::bad_alloc();
    FetchedPage page;
    Complaint complaint{};
    prepare(handle.get(), address, patience, page.body, complaint);
    const CURLcode result = curl_easy_perform(handle.get());
    long status = 0;
    curl_easy_getinfo(handle.get(), CURLINFO_RESPONSE_CODE, &status);
    if (status >= first_refusal) throw page_error("the server answers with " + std::to_string(status));
    page.is_whole = result == CURLE_OK;
    if (result == CURLE_WRITE_ERROR) require_size(largest_page + 1);
    if (result == CURLE_PEER_FAILED_VERIFICATION) refuse_certificate(complaint.data());
    if (result == CURLE_OPERATION_TIMEDOUT && page.body.empty()) throw page_error("it has not come in time");
    if (!page.is_whole && page.body.empty())
        throw page_error(std::string("the page cannot be had (") + curl_easy_strerror(result) + ")");
    const char* text = nullptr;
    curl_easy_getinfo(handle.get(), CURLINFO_CONTENT_TYPE, &text);
    if (text != nullptr) read_content_type(page, text);
    curl_easy_getinfo(handle.get(), CURLINFO_EFFECTIVE_URL, &text);
    page.address = without_user(text);
    return page;
}

std::string content_of(const DocumentFile& document) {
    std::string body;
    std::string piece(std::size_t{1} << 16U, '\0');
    while (true) {
        const ssize_t size = ::read(document.descriptor.get(), piece.data(), piece.size());
        if (size < 0 && errno == EINTR) continue;
        if (size < 0) throw page_error("it cannot be read");
        if (size == 0) return body;
        body.append(piece, 0, static_cast<std::size_t>(size));
        require_size(body.size());
    }
}

FetchedPage taken(Machine& machine, const std::string& file, const std::string& address) {
    FetchedPage page;
    page.address = address;
    try {
        const DocumentFile document = machine.open_document(file, DocumentAccess::open_file);
        page.body = content_of(document);
    } catch (const std::filesystem::filesystem_error& failure) {
        throw page_error("the page cannot be had (" + failure.code().message() + ")");
    }
    if (automation::to_lower(std::filesystem::path(file).extension().native()) == ".txt")
        page.type = "text/plain";
    return page;
}

Value make(Machine& machine, const FetchedPage& page, const std::string& file) {
    const std::string document = stand_alone(page);
    const auto output = machine.make_output(file);
    output->write(document);
    output->commit();
    if (!page.is_whole) return "as far as it had come in time";
    const std::string elsewhere = parts_elsewhere(page.body);
    return elsewhere.empty() ? "" : "without " + elsewhere;
}

}  // namespace

automation::Error page_error(const std::string& reason) {
    return {static_cast<std::int32_t>(0x80004005U), fetcher_name, reason};
}

automation::ObjectPtr make_page_fetcher(Machine& machine, std::chrono::milliseconds patience) {
    auto fetcher = std::make_shared<LateBound>(fetcher_name);
    fetcher->add_method("Fetch", {"Address", "File"}, [&machine, patience](const Bound& given) {
        machine.be_contained();
        return make(machine, fetched(to_text(given[0]), patience), to_text(given[1]));
    });
    fetcher->add_method("Take", {"Document", "Address", "File"}, [&machine](const Bound& given) {
        return make(machine, taken(machine, to_text(given[0]), to_text(given[1])), to_text(given[2]));
    });
    return fetcher;
}

}  // namespace foliant::hosts::transfer
