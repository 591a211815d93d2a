#include "hosts/notepad/notepad.h"

#include <cerrno>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "automation/coerce.h"
#include "automation/error.h"
#include "hosts/late_bound.h"
#include "hosts/notepad/print_text.h"
#include "hosts/pages/text.h"
#include "hosts/pdf_printer.h"
#include "hosts/text_encoding.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::notepad {

namespace {

using automation::Error;
using automation::RuntimeError;
namespace fs = std::filesystem;

constexpr const char* program_name = "Notepad";
constexpr auto not_done = static_cast<std::int32_t>(0x80004005U);

Error failure(RuntimeError number, std::string description) {
    return {static_cast<std::int32_t>(number), program_name, std::move(description)};
}

Error cannot_open(const fs::path& path, int code) {
    const std::string what = path.string() + " cannot be opened: ";
    switch (code) {
        case ENOENT:
        case ENOTDIR:
            return failure(RuntimeError::file_not_found, what + "there is no such file.");
        case EACCES:
        case EPERM:
            return failure(RuntimeError::permission_denied, what + "you may not read it.");
        case EISDIR:
            return failure(RuntimeError::path_file_access, what + "it is a folder.");
        case ENOTSUP:
            return failure(RuntimeError::path_file_access, what + "it is a device or a pipe.");
        default:
            return failure(RuntimeError::path_file_access,
                           what + std::error_code(code, std::generic_category()).message() + ".");
    }
}

std::string content_of(const DocumentFile& file) {
    constexpr off_t most = off_t{256} << 20;
    struct stat status {};
    if (::fstat(file.descriptor.get(), &status) != 0) throw cannot_open(file.path, errno);
    if (status.st_size > most)
        throw Error(
            not_done, program_name,
            file.path.string() + " is too large for Notepad, which takes texts of 256 MiB. Split it.");
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t size = 0;
    while (size < content.size()) {
        const ssize_t got = ::pread(file.descriptor.get(), content.data() + size, content.size() - size,
                                    static_cast<off_t>(size));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) throw cannot_open(file.path, errno);
        if (got == 0) break;  // it has become shorter
        size += static_cast<std::size_t>(got);
    }
    content.resize(size);
    return content;
}

std::string text_in(const DocumentFile& file) {
    const std::string content = content_of(file);
    if (pages::is_for_programs(content))
        throw Error(
            not_done, program_name,
            file.path.string() + " holds no text, but what only programs read. Give a plain text file.");
    return pages::text_of(content, text_code_page(character_locale()));
}

DocumentFile open_file(Machine& machine, const fs::path& path) {
    try {
        return machine.open_document(path, DocumentAccess::open_file);
    } catch (const fs::filesystem_error& reason) {
        throw cannot_open(reason.path1(), reason.code().value());
    }
}

/// Tells how far it is a few times a second.
class Progress {
  public:
    explicit Progress(Machine& machine) : machine_(machine) {}

    void operator()(int percent) {
        constexpr std::chrono::milliseconds pause{200};
        const auto now = std::chrono::steady_clock::now();
        if (now - last_ < pause) return;
        last_ = now;
        machine_.show_progress("Printing", percent);
    }

  private:
    Machine& machine_;
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

void write_pdf(Machine& machine, const std::string& text, const std::string& name, const fs::path& target) {
    try {
        const std::unique_ptr<OutputFile> output = machine.make_output(target);
        const pages::Paper paper = pages::usual_paper();
        pages::PageWriter writer(paper, {.title = name, .creator = program_name},
                                 [&](std::string_view bytes) { output->write(bytes); });
        print_text(text, name, paper, writer, Progress(machine));
        writer.finish();
        output->commit();
    } catch (const fs::filesystem_error& reason) {
        throw write_failure(program_name, reason);
    }
}

void print_on_pdf_printer(Machine& machine, const std::string& text, const std::string& name) {
    const auto target = ask_for_printed_file(machine, name);
    if (!target) throw Error(not_done, program_name, not_printed(name));
    write_pdf(machine, text, name, *target);
    show_printed_file(machine, *target);
}

void print_on_queue(Machine& machine, const std::string& text, const std::string& name,
                    const std::string& printer) {
    const fs::path pdf = machine.private_folder() / "print-job.pdf";
    write_pdf(machine, text, name, pdf);
    machine.print(printer, pdf, name);
    fs::remove(pdf);
}

void print_file(Machine& machine, const std::string& path) {
    const DocumentFile file = open_file(machine, path);
    const std::string text = text_in(file);
    const std::string name = file.path.filename().string();
    const std::string printer = machine.default_printer();
    if (machine.is_pdf_printer(printer))
        print_on_pdf_printer(machine, text, name);
    else
        print_on_queue(machine, text, name, printer);
}

}  // namespace

automation::ObjectPtr make_notepad(Machine& machine) {
    auto notepad = std::make_shared<LateBound>(program_name);
    notepad->add_method("PrintFile", {"FileName"}, [&machine](const Bound& given) {
        print_file(machine, automation::to_text(given[0]));
        return automation::Value();
    });
    return notepad;
}

}  // namespace foliant::hosts::notepad
