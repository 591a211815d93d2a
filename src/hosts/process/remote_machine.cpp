#include "hosts/process/remote_machine.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "hosts/process/machine_calls.h"

namespace foliant::hosts::process {

using posix::FileDescriptor;

namespace {

Writer request(MachineCall call) {
    Writer message;
    message.put(call);
    return message;
}

[[noreturn]] void fail(const std::filesystem::path& path) {
    throw std::filesystem::filesystem_error("", path, std::error_code(errno, std::generic_category()));
}

/// A file that the other side has made; here it is only written.
class RemoteOutput : public OutputFile {
  public:
    RemoteOutput(std::shared_ptr<Peer> peer, std::filesystem::path path, std::uint32_t number,
                 FileDescriptor file)
        : peer_(std::move(peer)), path_(std::move(path)), number_(number), file_(std::move(file)) {}
    RemoteOutput(const RemoteOutput&) = delete;
    RemoteOutput& operator=(const RemoteOutput&) = delete;
    ~RemoteOutput() override {
        if (is_committed_) return;
        try {
            peer_->call(request(MachineCall::drop_output).put(number_));
        } catch (...) {  // NOLINT(bugprone-empty-catch): without anybody to tell there is no file either
        }
    }

    int descriptor() const noexcept override { return file_.get(); }
    void write(std::string_view bytes) override { write_all(file_.get(), bytes, path_); }
    void commit() override {
        close_written(file_, path_);
        is_committed_ = true;
        peer_->call(request(MachineCall::commit_output).put(number_));
    }

  private:
    std::shared_ptr<Peer> peer_;
    std::filesystem::path path_;
    std::uint32_t number_;
    FileDescriptor file_;
    bool is_committed_ = false;
};

}  // namespace

DocumentFile RemoteMachine::open_document(const std::filesystem::path& path, DocumentAccess access) {
    Reader result = peer_->call(request(MachineCall::open_document).put(path.native()));
    DocumentFile document;
    document.path = result.text();
    document.descriptor = result.descriptor();
    const bool needs_place = access == DocumentAccess::place;
    if (contain_) {
        if (needs_place) document.place = document.path;
        be_contained(document.place);
    } else if (needs_place) {
        document.place = copy_of(document);
    }
    return document;
}

void RemoteMachine::be_contained() {
    if (contain_) be_contained({});
}

/// Where that fails, nothing goes on: the next document meets the same.
void RemoteMachine::be_contained(const std::filesystem::path& document) {
    contain_(document);
    contain_ = nullptr;
}

/// A copy under the document's own name.
std::filesystem::path RemoteMachine::copy_of(const DocumentFile& document) {
    const std::filesystem::path folder = folder_ / ("document-" + std::to_string(++copies_));
    std::filesystem::create_directory(folder);
    const std::filesystem::path place = folder / document.path.filename();
    FileDescriptor copy(::open(place.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!copy) fail(place);
    std::string piece(std::size_t{1} << 20U, '\0');
    off_t position = 0;
    while (true) {
        const ssize_t got = ::pread(document.descriptor.get(), piece.data(), piece.size(), position);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) fail(document.path);
        if (got == 0) break;
        write_all(copy.get(), std::string_view(piece).substr(0, static_cast<std::size_t>(got)), place);
        position += got;
    }
    close_written(copy, place);
    return place;
}

std::unique_ptr<OutputFile> RemoteMachine::make_output(const std::filesystem::path& path) {
    if (path.parent_path() == folder_)
        return std::make_unique<PendingFile>(path, PendingFile::Name::hidden);  // nothing to ask anybody
    Reader result = peer_->call(request(MachineCall::make_output).put(path.native()));
    const auto number = result.number<std::uint32_t>();
    return std::make_unique<RemoteOutput>(peer_, path, number, result.descriptor());
}

bool RemoteMachine::has_printer(std::string_view name) const {
    return peer_->call(request(MachineCall::has_printer).put(name)).truth();
}

bool RemoteMachine::is_pdf_printer(std::string_view name) const {
    return peer_->call(request(MachineCall::is_pdf_printer).put(name)).truth();
}

std::string RemoteMachine::default_printer() const {
    return peer_->call(request(MachineCall::default_printer)).text();
}

std::vector<std::string> RemoteMachine::printer_names() const {
    Reader result = peer_->call(request(MachineCall::printer_names));
    std::vector<std::string> names(result.count());
    for (std::string& name : names)
        name = result.text();
    return names;
}

void RemoteMachine::print(std::string_view printer, const std::filesystem::path& pdf,
                          std::string_view title) {
    peer_->call(request(MachineCall::print).put(printer).put(pdf.native()).put(title));
}

bool RemoteMachine::found(const FoundText& place) {
    Writer message = request(MachineCall::found);
    put_place(message, place);
    return peer_->call(message).truth();
}

void RemoteMachine::show_progress(std::string_view doing, int percent) {
    peer_->call(request(MachineCall::show_progress).put(doing).put(static_cast<std::int32_t>(percent)));
}

void RemoteMachine::tell_failure(const std::string& sentence) {
    peer_->call(request(MachineCall::tell_failure).put(std::string_view(sentence)));
}

void RemoteMachine::show(Dialog& dialog) {
    Dialog* const below = std::exchange(shown_, &dialog);
    Writer message = request(MachineCall::show);
    message.put(static_cast<bool>(dialog.on_click));
    put_dialog(message, dialog);
    try {
        Reader result = peer_->call(message);
        update_dialog(dialog, result);
    } catch (...) {
        shown_ = below;
        throw;
    }
    shown_ = below;
}

void RemoteMachine::click(Reader& arguments, Writer& result) {
    if (shown_ == nullptr) throw Garbled();
    const auto index = arguments.number<std::uint32_t>();
    update_dialog(*shown_, arguments);
    if (shown_->on_click) shown_->on_click(*shown_, index);
    put_dialog(result, *shown_);
}

HostWindow RemoteMachine::open_window(std::string caption, std::function<void()> on_close) {
    Reader result = peer_->call(request(MachineCall::open_window).put(std::string_view(caption)));
    const auto window = static_cast<HostWindow>(result.number<WindowNumber>());
    windows_[window] = std::move(on_close);
    return window;
}

void RemoteMachine::close_window(HostWindow window) {
    windows_.erase(window);
    peer_->call(request(MachineCall::close_window).put(static_cast<WindowNumber>(window)));
}

void RemoteMachine::show_in_acrobat(const std::filesystem::path& pdf, const std::string& name) {
    peer_->call(request(MachineCall::show_in_acrobat).put(pdf.native()).put(std::string_view(name)));
}

std::optional<HandedOver> RemoteMachine::take_handed_over() {
    Reader result = peer_->call(request(MachineCall::take_handed_over));
    if (!result.truth()) return std::nullopt;
    HandedOver document{.name = result.text(), .pdf = result.descriptor()};
    be_contained();  // it is a document like any other
    return document;
}

CapturedPage RemoteMachine::capture_page(const std::string& address) {
    Reader result = peer_->call(request(MachineCall::capture_page).put(std::string_view(address)));
    CapturedPage page;
    page.errors = result.text();
    page.pdf = result.descriptor();
    be_contained();  // it is a document like any other
    return page;
}

void RemoteMachine::leave_open(const std::optional<LeftOpen>& document) {
    Writer message = request(MachineCall::leave_open);
    message.put(document.has_value());
    if (document)
        message.put(document->document.native())
            .put(static_cast<std::int32_t>(document->page))
            .put(document->speech.native());
    peer_->call(message);
}

void RemoteMachine::closed(Reader& arguments) {
    const auto window = windows_.extract(static_cast<HostWindow>(arguments.number<WindowNumber>()));
    if (!window.empty() && window.mapped()) window.mapped()();
}

std::optional<std::string> RemoteMachine::setting(std::string_view, std::string_view) const {
    return std::nullopt;
}

}  // namespace foliant::hosts::process
