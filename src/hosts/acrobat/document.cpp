#include "hosts/acrobat/document.h"

#include <cerrno>
#include <chrono>
#include <exception>
#include <new>
#include <system_error>
#include <utility>

#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/images/image_pages.h"
#include "hosts/acrobat/structure/unreadable.h"
#include "hosts/acrobat/unknown_content.h"

namespace foliant::hosts::acrobat {

using automation::RuntimeError;

namespace {

automation::Error cannot_open(const std::string& path, const std::error_code& code) {
    const std::string what = path + " cannot be opened: ";
    switch (code.value()) {
        case ENOENT:
            return acrobat_error(RuntimeError::file_not_found, what + "there is no such file.");
        case EACCES:
        case EPERM:
            return acrobat_error(RuntimeError::permission_denied, what + "you may not read it.");
        case EISDIR:
            return acrobat_error(RuntimeError::path_file_access, what + "it is a folder.");
        case ENOTSUP:
            return acrobat_error(RuntimeError::path_file_access, what + "it is a device or a pipe.");
        default:
            return acrobat_error(RuntimeError::path_file_access, what + code.message() + ".");
    }
}

using FilePtr = std::shared_ptr<const MappedFile>;

/// A file that was handed out before it was to be opened here.
struct HandedOut {
    std::string path;
    posix::FileDescriptor file;
};
HandedOut handed_out;

posix::FileDescriptor open_file(Machine& machine, const std::string& path) {
    HandedOut before = std::exchange(handed_out, {});
    if (before.file && before.path == path) return std::move(before.file);
    return machine.open_document(path, DocumentAccess::open_file).descriptor;
}

FilePtr map(Machine& machine, const std::string& path) {
    try {
        return std::make_shared<const MappedFile>(open_file(machine, path).get());
    } catch (const std::system_error& failure) {
        throw cannot_open(path, failure.code());
    }
}

/// A PDF, or an image as one.
std::shared_ptr<structure::Pdf> read(const FilePtr& file, const std::string& password) {
    if (!images::is_image(file->bytes())) return structure::Pdf::open(file, password);
    std::shared_ptr<structure::Pdf> pdf = structure::Pdf::create();
    images::add_image_pages(pdf->qpdf(), images::Content(file, file->bytes()));
    return pdf;
}

}  // namespace

Document::Document(Machine& machine, std::string path, std::string password,
                   std::shared_ptr<structure::Pdf> pdf)
    : machine_(machine), path_(std::move(path)), password_(std::move(password)), pdf_(std::move(pdf)) {}

DocumentPtr Document::open(Machine& machine, const std::string& path, const std::string& password) {
    const FilePtr file = map(machine, path);
    try {
        return DocumentPtr(new Document(machine, path, password, read(file, password)));
    } catch (const structure::WrongPassword&) {
        throw;
    } catch (const structure::NoPdf&) {
        throw document_error(path + " " + why_unknown(path, file->bytes()) + ".");
    } catch (const structure::Unreadable& reason) {
        throw document_error(path + " cannot be opened: " + reason.what() + ".");
    } catch (const images::ImageError& reason) {
        throw document_error(path + " is no image that can be read: " + reason.what() + ".");
    }
}

void Document::take_over(const std::string& path, posix::FileDescriptor file) {
    handed_out = {path, std::move(file)};
}

DocumentPtr Document::of_file(Machine& machine, int descriptor, const std::string& what) {
    try {
        const auto file = std::make_shared<const MappedFile>(descriptor);
        return DocumentPtr(new Document(machine, "", "", structure::Pdf::open(file, "")));
    } catch (const std::runtime_error& reason) {
        throw document_error(what + " cannot be opened: " + reason.what() + ".");
    }
}

void Document::note_saved(const std::string& path) {
    if (path_.empty()) path_ = path;
    saved_revision_ = pdf_->revision();
}

void Document::show_progress(std::string_view doing, int percent) const {
    using Clock = std::chrono::steady_clock;
    static Clock::time_point last;  // of any document
    constexpr std::chrono::milliseconds pause{200};
    const Clock::time_point now = Clock::now();
    if (now - last < pause) return;
    last = now;
    constexpr std::size_t longest_name = 50;  // that a line of a terminal has room for
    const std::string file = name();
    machine_.show_progress(std::string(doing) + (file.size() > longest_name ? "" : " " + file), percent);
}

void Document::tell_missing_pages() {
    const std::size_t missing = pdf_->missing_pages();
    if (missing == 0 || std::exchange(has_told_missing_pages_, true)) return;
    machine_.tell_failure(path_ + " is damaged: " +
                          (missing == 1 ? "a page of it is" : std::to_string(missing) + " of its pages are") +
                          " missing. The others were taken.");
}

void Document::raise_unusable() const {
    const std::string file = path_.empty() ? "The new document" : path_;
    try {
        throw;
    } catch (const automation::Error&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::filesystem::filesystem_error&) {
        throw;
    } catch (const structure::Unreadable& reason) {
        throw document_error(file + " cannot be used: " + reason.what() + ".");
    } catch (const text::Unreadable& reason) {
        throw document_error("The text of " + file + " cannot be read: " + reason.what() + ".");
    } catch (const std::exception& reason) {
        throw document_error(file + " cannot be used: it seems to be damaged (" + reason.what() + ").");
    }
}

DocumentText& Document::text() {
    if (!text_) {
        with_file_named(*this, [&](structure::Pdf& pdf) {
            if (pdf.is_as_read()) text_ = std::make_unique<DocumentText>(pdf.file(), password_, most_text());
            if (text_ && text_->pages().page_count() >= pdf.page_count()) return;
            pdf.mend_page_count();
            text_ = std::make_unique<DocumentText>(pdf, most_text());
        });
    }
    return *text_;
}

std::size_t Document::most_text() const noexcept {
    constexpr std::size_t share = 4;  // of the memory that the host may have
    return static_cast<std::size_t>(machine_.memory_limit_bytes() / share);
}

DocumentPtr Document::create(Machine& machine) {
    return DocumentPtr(new Document(machine, "", "", structure::Pdf::create()));
}

void Document::use_owner_password(const std::string& password) {
    if (!pdf_->file()) return;
    try {
        is_owned_ = structure::Pdf::open(pdf_->file(), password)->qpdf().ownerPasswordMatched();
    } catch (const structure::WrongPassword&) {  // NOLINT(bugprone-empty-catch): nothing has changed
    }
}

}  // namespace foliant::hosts::acrobat
