#include "platform/local/plain_capture.h"

#include <filesystem>

#include "automation/coerce.h"
#include "automation/error.h"
#include "automation/value.h"
#include "hosts/catalogue.h"
#include "hosts/web/address.h"
#include "hosts/web/capture_error.h"
#include "registered/classes.h"

namespace foliant::platform::local {

namespace fs = std::filesystem;
using automation::Error;
using automation::RuntimeError;
using automation::Value;

namespace {

/// A file that is removed again.
class PassingFile {
  public:
    explicit PassingFile(fs::path path) : path_(std::move(path)) {}
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;
    ~PassingFile() {
        std::error_code ignored;
        fs::remove(path_, ignored);
    }

    std::string name() const { return path_.string(); }

  private:
    fs::path path_;
};

Value host(Servers& servers, std::string_view class_name) {
    try {
        return Value(servers.create(class_name));
    } catch (const Error& error) {
        if (!error.is(RuntimeError::cannot_create_object)) throw;
        throw hosts::web::NoBrowser(
            "there is neither a browser that captures it nor LibreOffice, which could do so without its pictures. "
            "Install the package chromium, or libreoffice-writer-nogui");
    }
}

/// What a host says of the page, as the reason why it is not captured.
[[noreturn]] void refuse(const Error& error, const std::string& file) {
    if (error.is(RuntimeError::out_of_memory)) throw error;
    std::string reason = error.description();
    if (const std::size_t at = reason.find(file); at != std::string::npos)
        reason.replace(at, file.size(), "it");
    if (reason.ends_with('.')) reason.pop_back();
    throw hosts::web::CaptureError(reason);
}

/// Has the page brought to `file`. Returns what it comes without, as the end of a sentence.
std::string fetch(const Value& fetcher, const std::string& address, const std::string& file) {
    const std::vector<fs::path> files = hosts::web::files_of(address);
    const Value missing = files.empty() ? fetcher.call("Fetch", {address, file})
                                        : fetcher.call("Take", {files.front().string(), address, file});
    return automation::to_text(missing);
}

}  // namespace

hosts::CapturedPage capture_plainly(Servers& servers, hosts::Machine& machine, const std::string& address) {
    const PassingFile page(machine.private_folder() / "captured-page.html");
    const Value pdfmaker = host(servers, registered::pdfmaker);
    hosts::CapturedPage captured;
    try {
        const Value fetcher = host(servers, hosts::page_fetcher);
        const std::string missing = fetch(fetcher, address, page.name());
        if (!missing.empty())
            captured.errors =
                missing +
                ", by LibreOffice. Install the package chromium to have the page as a browser shows it";
        pdfmaker.call("LaunchDocument", {page.name(), std::int32_t{0}});
    } catch (const Error& error) {
        refuse(error, page.name());
    }
    auto made = machine.take_handed_over();
    if (!made) throw hosts::web::CaptureError("LibreOffice has made no PDF of it");
    captured.pdf = std::move(made->pdf);
    return captured;
}

}  // namespace foliant::platform::local
