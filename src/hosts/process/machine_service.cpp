#include "hosts/process/machine_service.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

#include "hosts/process/machine_calls.h"
#include "hosts/transfer_command.h"

namespace foliant::hosts::process {

using posix::FileDescriptor;

namespace {

constexpr std::size_t most_outputs = 64;  // at a time
constexpr std::size_t most_windows = 64;

[[noreturn]] void refuse(const std::filesystem::path& path) {
    throw std::filesystem::filesystem_error("", path, std::error_code(EACCES, std::generic_category()));
}

std::pair<dev_t, ino_t> identity(const struct stat& status) {
    return {status.st_dev, status.st_ino};
}

}  // namespace

MachineService::~MachineService() {
    for (const HostWindow window : windows_)
        machine_.close_window(window);
}

void MachineService::was_named(const std::string& text) {
    named_.insert(text);
    said_since_opening_.insert(text);
    if (const auto readings = transfer_readings(text); readings.size() == 1)
        named_.insert(readings.front().local_file);
}

void MachineService::answer(Peer& peer, Reader& arguments, Writer& result) {
    switch (static_cast<MachineCall>(arguments.number<std::uint8_t>())) {
        case MachineCall::open_document:
            return open_document(arguments, result);
        case MachineCall::make_output:
            return make_output(arguments, result);
        case MachineCall::commit_output:
            return commit_output(arguments);
        case MachineCall::drop_output:
            outputs_.erase(arguments.number<std::uint32_t>());
            return;
        case MachineCall::has_printer:
            result.put(machine_.has_printer(arguments.text()));
            return;
        case MachineCall::is_pdf_printer:
            result.put(machine_.is_pdf_printer(arguments.text()));
            return;
        case MachineCall::default_printer:
            result.put(std::string_view(machine_.default_printer()));
            return;
        case MachineCall::printer_names:
            return put_printer_names(result);
        case MachineCall::print:
            return print(arguments);
        case MachineCall::found:
            result.put(machine_.found(read_place(arguments)));
            return;
        case MachineCall::show:
            return show(peer, arguments, result);
        case MachineCall::open_window:
            return open_window(peer, arguments, result);
        case MachineCall::close_window:
            return close_window(arguments);
        case MachineCall::leave_open:
            return leave_open(arguments);
        case MachineCall::capture_page:
            return capture_page(arguments, result);
        case MachineCall::show_progress:
            return show_progress(arguments);
        case MachineCall::tell_failure:
            return tell_failure(arguments);
        case MachineCall::show_in_acrobat:
            return show_in_acrobat(arguments);
        case MachineCall::take_handed_over:
            return take_handed_over(result);
    }
    throw Garbled();
}

std::filesystem::path MachineService::named_path(Reader& arguments) const {
    std::string path = arguments.text();
    if (!named_.contains(path)) refuse(path);
    return path;
}

void MachineService::open_document(Reader& arguments, Writer& result) {
    const std::filesystem::path path = named_path(arguments);
    DocumentFile document = machine_.open_document(path);
    said_since_opening_.erase(path.native());
    said_since_opening_.erase(save_command_);
    struct stat status {};
    if (::fstat(document.descriptor.get(), &status) == 0) documents_.insert(identity(status));
    proposals_.insert(document.path.filename().replace_extension(".pdf").native());
    result.put(std::string_view(document.path.native())).attach(std::move(document.descriptor));
}

/// A document is replaced by who was told to save it since it was opened: by its name, or by the command.
bool MachineService::may_replace(const std::filesystem::path& document) const {
    if (save_command_.empty()) return false;
    return said_since_opening_.contains(document.native()) || said_since_opening_.contains(save_command_);
}

void MachineService::make_output(Reader& arguments, Writer& result) {
    const std::filesystem::path path = named_path(arguments);
    struct stat status {};
    const bool is_document = ::stat(path.c_str(), &status) == 0 && documents_.contains(identity(status));
    if ((is_document && !may_replace(path)) || outputs_.size() >= most_outputs) refuse(path);
    std::unique_ptr<OutputFile> output = machine_.make_output(path);
    FileDescriptor file(::fcntl(output->descriptor(), F_DUPFD_CLOEXEC, 0));
    if (!file) throw std::system_error(errno, std::generic_category(), "cannot share an output");
    result.put(++last_output_).attach(std::move(file));
    outputs_[last_output_] = std::move(output);
}

void MachineService::commit_output(Reader& arguments) {
    const auto output = outputs_.extract(arguments.number<std::uint32_t>());
    if (output.empty()) throw Garbled();
    output.mapped()->commit();
}

void MachineService::put_printer_names(Writer& result) const {
    const std::vector<std::string> names = machine_.printer_names();
    result.put(static_cast<std::uint32_t>(names.size()));
    for (const std::string& name : names)
        result.put(std::string_view(name));
}

bool MachineService::is_its_own(const std::filesystem::path& file) const {
    return file.parent_path() == folder_ && file.has_filename() && file.filename() != ".." &&
           std::filesystem::is_regular_file(std::filesystem::symlink_status(file));
}

/// Only what the host has made itself is printed.
void MachineService::print(Reader& arguments) {
    const std::string printer = arguments.text();
    const std::filesystem::path pdf = arguments.text();
    const std::string title = arguments.text();
    if (!is_its_own(pdf)) refuse(pdf);
    machine_.print(printer, pdf, title);
}

void MachineService::show_progress(Reader& arguments) {
    constexpr std::size_t longest = 80;
    const std::string doing = arguments.text();
    const auto percent = arguments.number<std::int32_t>();
    if (doing.size() > longest || percent < -1 || percent > 100) throw Garbled();
    machine_.show_progress(doing, percent);
}

/// A list of inputs may fail in each of its items. What is more, or longer, than people read is left out.
void MachineService::tell_failure(Reader& arguments) {
    constexpr std::size_t most_failures = 10'000;
    constexpr std::size_t longest = 8192;
    const std::string sentence = arguments.text();
    if (++failures_told_ <= most_failures) machine_.tell_failure(sentence.substr(0, longest));
}

/// Only what the host has made itself is handed on.
void MachineService::show_in_acrobat(Reader& arguments) {
    constexpr std::size_t longest = 255;
    const std::filesystem::path pdf = arguments.text();
    const std::string name = arguments.text();
    if (name.size() > longest) throw Garbled();
    if (!is_its_own(pdf)) refuse(pdf);
    machine_.show_in_acrobat(pdf, name);
}

void MachineService::take_handed_over(Writer& result) {
    std::optional<HandedOver> document = machine_.take_handed_over();
    result.put(document.has_value());
    if (document) result.put(std::string_view(document->name)).attach(std::move(document->pdf));
}

void MachineService::show(Peer& peer, Reader& arguments, Writer& result) {
    const bool wants_clicks = arguments.truth();
    Dialog dialog;
    update_dialog(dialog, arguments);
    std::vector<Control> proposed = dialog.controls;
    if (wants_clicks) {
        dialog.on_click = [&](Dialog& shown, std::size_t index) {
            Writer click;
            click.put(HostCall::click).put(static_cast<std::uint32_t>(index));
            put_dialog(click, shown);
            Reader answer = peer.call(click);
            update_dialog(shown, answer);
            proposed = shown.controls;
        };
    }
    machine_.show(dialog);
    // What was typed names a file. What the host had written there itself does not, but for a document's own
    // name with another ending, which whoever answers dialogs may have left as it is.
    for (std::size_t i = 0; i < dialog.controls.size() && i < proposed.size(); ++i) {
        const std::string& text = dialog.controls[i].text;
        if (text != proposed[i].text || (dialog.accepted && proposals_.contains(text))) was_named(text);
    }
    put_dialog(result, dialog);
}

void MachineService::open_window(Peer& peer, Reader& arguments, Writer& result) {
    if (windows_.size() >= most_windows) throw Garbled();
    const auto number = std::make_shared<HostWindow>();
    const auto on_close = [this, number, other = peer.weak_from_this()] {
        const auto still_there = other.lock();
        if (!still_there) return;
        windows_.erase(*number);
        try {
            Writer closed;
            still_there->call(closed.put(HostCall::closed).put(static_cast<WindowNumber>(*number)));
        } catch (...) {  // NOLINT(bugprone-empty-catch): a host that is gone shows with the next call
        }
    };
    *number = machine_.open_window(arguments.text(), on_close);
    windows_.insert(*number);
    result.put(static_cast<WindowNumber>(*number));
}

void MachineService::close_window(Reader& arguments) {
    const auto window = static_cast<HostWindow>(arguments.number<WindowNumber>());
    if (windows_.erase(window) > 0) machine_.close_window(window);
}

/// Only what was typed into its dialogs is captured: a host cannot go where it likes.
void MachineService::capture_page(Reader& arguments, Writer& result) {
    const std::string address = named_path(arguments);
    CapturedPage page = machine_.capture_page(address);
    result.put(std::string_view(page.errors)).attach(std::move(page.pdf));
}

/// Only documents that were named to the host are shown, and only what it has made itself is read aloud.
void MachineService::leave_open(Reader& arguments) {
    if (!arguments.truth()) return machine_.leave_open(std::nullopt);
    LeftOpen left;
    left.document = named_path(arguments);
    left.page = arguments.number<std::int32_t>();
    left.speech = arguments.text();
    if (left.page < 1) throw Garbled();
    if (!left.speech.empty() && !is_its_own(left.speech)) refuse(left.speech);
    machine_.leave_open(left);
}

}  // namespace foliant::hosts::process
