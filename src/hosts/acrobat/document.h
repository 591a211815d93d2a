#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <qpdf/QPDFObjectHandle.hh>
#include <string>
#include <string_view>

#include "hosts/acrobat/document_text.h"
#include "hosts/acrobat/structure/pdf.h"
#include "hosts/machine.h"

namespace foliant::hosts::acrobat {

/// A PDF that is open in Acrobat, however many objects and windows show it.
class Document {
  public:
    /// Opens a file that was named to this host, a PDF or an image. `password` is "" where none is known. Throws
    /// structure::WrongPassword, and automation errors that name the file.
    static std::shared_ptr<Document> open(Machine& machine, const std::string& path,
                                          const std::string& password);

    /// The file that is opened next under that path is this one, which the machine has handed out already.
    static void take_over(const std::string& path, posix::FileDescriptor file);

    /// A PDF without a name of its own, from an open file. Raises an automation error that says `what` it is.
    static std::shared_ptr<Document> of_file(Machine& machine, int descriptor, const std::string& what);

    /// A new document without pages or name.
    static std::shared_ptr<Document> create(Machine& machine);

    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Machine& machine() const noexcept { return machine_; }

    /// As it was opened; "" for a new one.
    const std::string& path() const noexcept { return path_; }
    /// The file's own name; "" for a new one.
    std::string name() const { return std::filesystem::path(path_).filename().string(); }

    /// What opened it; "" when nothing was needed.
    const std::string& password() const noexcept { return password_; }

    structure::Pdf& pdf() noexcept { return *pdf_; }

    /// The text of its pages as they are now. Raises a failure that names the file.
    DocumentText& text();

    /// Whether that may be done with it, by whoever has opened it or knows the owner's password.
    bool allows(structure::Right right) { return is_owned_ || pdf_->allows(right); }
    /// Allows everything, where that is the owner's password.
    void use_owner_password(const std::string& password);

    /// Call it inside a catch clause: raises what is being handled as a failure that names the file. What is
    /// no matter of the document (memory, outputs, automation errors) stays what it is.
    [[noreturn]] void raise_unusable() const;

    /// The bookmark that was made last, as long as the document is open.
    std::optional<QPDFObjectHandle>& newest_bookmark() noexcept { return newest_bookmark_; }

    /// Tells people who wait what is being done with it: "Saving", 40; a few times a second, however often it
    /// is called. -1 per cent where nobody knows.
    void show_progress(std::string_view doing, int percent) const;

    /// Tells once how many of its pages are missing, if any are, before somebody relies on what is left.
    void tell_missing_pages();

    /// To be told after each change: what was read of the document before does not count any more.
    void note_change() noexcept {
        pdf_->note_change();
        text_.reset();
    }
    /// The same for what leaves the text of the pages as it is: bookmarks, links, information.
    void note_addition() noexcept { pdf_->note_change(); }
    /// Whether it was changed since it was opened or saved.
    bool is_changed() const noexcept { return pdf_->revision() != saved_revision_; }
    /// It is saved as it is now.
    void note_saved(const std::string& path);

  private:
    Document(Machine& machine, std::string path, std::string password, std::shared_ptr<structure::Pdf> pdf);

    /// How many bytes of text may stay in memory.
    std::size_t most_text() const noexcept;

    Machine& machine_;
    std::string path_;
    std::string password_;
    std::shared_ptr<structure::Pdf> pdf_;
    std::optional<QPDFObjectHandle> newest_bookmark_;
    std::unique_ptr<DocumentText> text_;  ///< null before it is asked for, and after a change
    std::uint64_t saved_revision_ = 0;
    bool is_owned_ = false;
    bool has_told_missing_pages_ = false;
};

using DocumentPtr = std::shared_ptr<Document>;

/// Does something with what is in a document. What is found to be wrong with it only then is raised as a
/// failure that names the file.
template <typename Work>
auto with_file_named(Document& document, Work work) {
    try {
        return work(document.pdf());
    } catch (...) {
        document.raise_unusable();
    }
}

}  // namespace foliant::hosts::acrobat
