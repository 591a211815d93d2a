#include "hosts/web/capture.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <thread>

#include "hosts/web/address.h"
#include "hosts/web/base64.h"
#include "hosts/web/browser.h"
#include "hosts/web/capture_error.h"
#include "hosts/web/devtools.h"

namespace foliant::hosts::web {

using nlohmann::json;

namespace {

/// A folder that is removed with everything in it.
class ProfileFolder {
  public:
    explicit ProfileFolder(std::filesystem::path path) : path_(std::move(path)) {
        std::filesystem::create_directory(path_);
    }
    ProfileFolder(const ProfileFolder&) = delete;
    ProfileFolder& operator=(const ProfileFolder&) = delete;
    ~ProfileFolder() {
        std::error_code ignored;  // processes that are just ending may still make files
        for (int i = 0; i < 20 && std::filesystem::remove_all(path_, ignored), ignored; ++i) {
        }
    }

    const std::filesystem::path& path() const noexcept { return path_; }

  private:
    std::filesystem::path path_;
};

/// One page on its way into a browser.
class PageCapture {
  public:
    PageCapture(Browser& browser, const CaptureLimits& limits)
        : tools_(browser, [this](const std::string& name, const json& facts) { note(name, facts); }),
          loaded_by_(std::chrono::steady_clock::now() + limits.load),
          done_by_(std::chrono::steady_clock::now() + limits.all) {}

    void load(const std::string& address) {
        const json page =
            tools_.call("Target.attachToTarget", {{"targetId", empty_page()}, {"flatten", true}}, done_by_);
        tools_.talk_to(page.at("sessionId"));
        tools_.send("Page.enable", json::object());
        tools_.send("Network.enable", json::object());
        const json begun = tools_.call("Page.navigate", {{"url", address}}, loaded_by_);
        if (const std::string problem = begun.value("errorText", std::string()); !problem.empty())
            throw CaptureError((problem.starts_with("net::ERR_CERT_")
                                    ? "its server's certificate is not trusted ("
                                    : "the page cannot be had (") +
                               problem + ")");
        loader_ = begun.value("loaderId", std::string());
        is_whole_ = is_loaded_in_time();
        if (is_whole_)
            ask_for_missing();
        else
            tools_.send("Page.stopLoading", json::object());
        if (const auto status = statuses_.find(loader_); status != statuses_.end() && status->second >= 400)
            throw CaptureError("the server answers with " + std::to_string(status->second));
    }

    void print(const std::filesystem::path& pdf) {
        const std::string stream = printed();
        std::ofstream out(pdf, std::ios::binary);
        constexpr int piece = 1 << 20;
        while (true) {
            const json part = tools_.call("IO.read", {{"handle", stream}, {"size", piece}}, done_by_);
            const std::string data = part.at("data");
            const std::string bytes = part.value("base64Encoded", false) ? decode_base64(data) : data;
            out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
            if (part.value("eof", true)) break;
        }
        if (!out.flush()) throw CaptureError("its PDF cannot be written: the disk may be full");
    }

    /// What the page is captured without, as the end of a sentence; "" where it is whole.
    std::string missing() const {
        if (!is_whole_) return "as far as it had come in time";
        if (missing_.empty()) return "";
        const std::size_t others = missing_.size() - 1;
        const std::string more = others == 0   ? ""
                                 : others == 1 ? " and 1 other part"
                                               : " and " + std::to_string(others) + " other parts";
        return "without " + first_missing_ + more;
    }

  private:
    /// The page that the browser starts with; another one would be one more process.
    std::string empty_page() {
        const json targets = tools_.call("Target.getTargets", json::object(), done_by_);
        for (const json& target : targets.at("targetInfos"))
            if (target.at("type") == "page") return target.at("targetId");
        return tools_.call("Target.createTarget", {{"url", "about:blank"}}, done_by_).at("targetId");
    }

    /// Asks the page itself: a page that another one takes the place of as soon as it is there has no event. One
    /// that goes on to another page by itself forgets the question, and is asked again.
    bool is_loaded_in_time() {
        constexpr const char* loaded =
            "document.URL != 'about:blank' && (document.readyState == 'complete' || "
            "new Promise(done => addEventListener('load', () => done(true))))";
        constexpr std::chrono::milliseconds pause{20};
        while (std::chrono::steady_clock::now() < loaded_by_) {
            try {
                const json answer = tools_.call("Runtime.evaluate",
                                                {{"expression", loaded}, {"awaitPromise", true}}, loaded_by_);
                if (answer.at("result").value("value", false)) return true;
            } catch (const CallRefused&) {  // it has just gone on
            } catch (const NoAnswer&) {
                break;
            }
            std::this_thread::sleep_for(pause);
        }
        return false;
    }

    /// The browser loses events when the page comes into another process than the empty one, so the page is asked,
    /// too. What it says of servers other than its own it keeps to itself, but for pictures that cannot be shown.
    void ask_for_missing() {
        constexpr const char* missing = R"((async () => {
            const shown = ['img', 'image', 'css', 'iframe', 'frame'];
            const parts = performance.getEntriesByType('resource');
            const statusOf = url => (parts.find(part => part.name == url) || {}).responseStatus || 0;
            const found = parts.filter(part => part.responseStatus >= 400 && shown.includes(part.initiatorType))
                               .map(part => part.name);
            for (const sheet of document.querySelectorAll('link[rel~=stylesheet]'))
                if (statusOf(sheet.href) >= 400) found.push(sheet.href);
            for (const image of document.images)
                if (image.complete && image.naturalWidth == 0 && image.currentSrc.startsWith('http'))
                    await image.decode().catch(() => found.push(image.currentSrc));
            return found.slice(0, 1000).map(url => [url.split('#')[0], statusOf(url)]);
        })())";
        const json wish{{"expression", missing}, {"awaitPromise", true}, {"returnByValue", true}};
        try {
            const json answer = tools_.call("Runtime.evaluate", wish, loaded_by_);
            for (const json& part : answer.at("result").value("value", json::array())) {
                const int status = part.at(1);
                note_missing(part.at(0), status == 0 ? "it cannot be shown" : std::to_string(status));
            }
        } catch (const CallRefused&) {  // NOLINT(bugprone-empty-catch): it has just gone on to another page
        } catch (const NoAnswer&) {     // NOLINT(bugprone-empty-catch): what events have told is there
        } catch (
            const json::exception&) {  // NOLINT(bugprone-empty-catch): a page may change what its words mean
        }
    }

    /// The name under which the browser has the PDF. A page that is just going on to another one by itself cannot
    /// be printed; the other one can.
    std::string printed() {
        const json wishes{
            {"printBackground", true}, {"preferCSSPageSize", true}, {"transferMode", "ReturnAsStream"}};
        for (int attempts_left = 5;; --attempts_left) {
            try {
                return tools_.call("Page.printToPDF", wishes, done_by_).at("stream");
            } catch (const CallRefused&) {
                if (attempts_left == 0) throw;
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
                is_loaded_in_time();
            }
        }
    }

    void note(const std::string& name, const json& facts) {
        if (name == "Page.javascriptDialogOpening") {
            tools_.send("Page.handleJavaScriptDialog", {{"accept", true}});  // nobody is there
        } else if (name == "Network.requestWillBeSent") {
            // One that is sent elsewhere keeps the address that the page has for it.
            if (requests_.size() < most_requests)
                requests_.emplace(facts.at("requestId"), facts.at("request").at("url"));
        } else if (name == "Network.responseReceived") {
            const int status = facts.at("response").value("status", 0);
            if (facts.value("type", std::string()) == "Document")
                statuses_[facts.value("loaderId", std::string())] = status;
            if (status >= 400) note_failed(facts, std::to_string(status));
        } else if (name == "Network.loadingFailed" && !facts.value("canceled", false)) {
            note_failed(facts, facts.value("errorText", std::string("no answer")));
        }
    }

    /// A part of the page that shows on paper. What a page wants besides is its own matter.
    void note_failed(const json& facts, const std::string& why) {
        constexpr std::array shown{"Document", "Image", "Stylesheet", "Font"};
        if (std::ranges::find(shown, facts.value("type", std::string())) == shown.end()) return;
        const auto request = requests_.find(facts.at("requestId"));
        if (request != requests_.end())
            note_missing(request->second, why);
        else if (facts.contains("response"))
            note_missing(facts["response"].value("url", std::string()), why);
    }

    /// Each address counts once, whoever tells it.
    void note_missing(const std::string& address, const std::string& why) {
        constexpr std::size_t longest = 200;
        if (missing_.size() >= most_requests || !missing_.insert(address).second) return;
        if (missing_.size() == 1) first_missing_ = address.substr(0, longest) + " (" + why + ")";
    }

    static constexpr std::size_t most_requests = 10'000;

    DevTools tools_;
    Deadline loaded_by_;
    Deadline done_by_;
    std::string loader_;
    std::map<std::string, int> statuses_;          ///< what the server has answered, by the load that asked
    std::map<std::string, std::string> requests_;  ///< addresses, by the browser's names for requests
    bool is_whole_ = true;
    std::set<std::string> missing_;  ///< the addresses of what is not there
    std::string first_missing_;
};

}  // namespace

std::string capture_page(const std::string& address, const std::filesystem::path& pdf,
                         const std::filesystem::path& folder, const CaptureLimits& limits) {
    const std::string full = full_address(address);
    const auto program = find_browser();
    if (!program) throw NoBrowser("there is no browser that captures it. Install the package chromium");
    const ProfileFolder profile(folder / "browser");
    Browser browser(*program, profile.path(), files_of(full));
    try {
        PageCapture capture(browser, limits);
        capture.load(full);
        capture.print(pdf);
        return capture.missing();
    } catch (const json::exception&) {
        throw CaptureError("the browser says what cannot be understood");
    }
}

}  // namespace foliant::hosts::web
