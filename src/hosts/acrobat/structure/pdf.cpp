#include "hosts/acrobat/structure/pdf.h"

#include <charconv>
#include <limits>
#include <new>
#include <qpdf/Buffer.hh>
#include <qpdf/BufferInputSource.hh>
#include <qpdf/QPDFExc.hh>
#include <qpdf/QUtil.hh>
#include <string_view>
#include <system_error>

#include "hosts/acrobat/structure/insert_pages.h"
#include "hosts/acrobat/structure/unreadable.h"

namespace foliant::hosts::acrobat::structure {

namespace {

constexpr std::size_t header_place = 1024;  // where readers look for "%PDF-"

/// The file's bytes for qpdf, as long as anything reads from it: pages that were copied into another
/// document read their streams here when that is written.
class Source : public BufferInputSource {
  public:
    explicit Source(std::shared_ptr<const MappedFile> file)
        : BufferInputSource("", make_buffer(file->bytes()), true), file_(std::move(file)) {}

  private:
    /// qpdf's buffers can be written to, but who reads from one does not.
    static Buffer* make_buffer(std::string_view bytes) {
        return new Buffer(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())), bytes.size());
    }

    std::shared_ptr<const MappedFile> file_;
};

void prepare(QPDF& pdf) {
    pdf.setSuppressWarnings(true);
}

[[noreturn]] void raise_damaged(const MappedFile& file, const std::string& detail) {
    const std::string_view start = file.bytes().substr(0, header_place);
    if (start.find("%PDF-") == std::string_view::npos) throw NoPdf();
    throw Unreadable("it seems to be damaged (" + detail + ")");
}

/// As the file says; qpdf's own function for it compiles a regular expression each time.
PDFVersion version_of(QPDF& pdf) {
    const std::string text = pdf.getPDFVersion();
    int numbers[2] = {1, 3};
    const char* const end = text.data() + text.size();
    const auto major = std::from_chars(text.data(), end, numbers[0]);
    if (major.ec == std::errc() && major.ptr != end) std::from_chars(major.ptr + 1, end, numbers[1]);
    return {numbers[0], numbers[1], pdf.getExtensionLevel()};
}

[[noreturn]] void raise_unreadable(const MappedFile& file, const QPDFExc& failure) {
    if (failure.getErrorCode() == qpdf_e_password) throw WrongPassword();
    if (failure.getErrorCode() == qpdf_e_unsupported)
        throw Unreadable("it is of a kind that cannot be read (" + failure.getMessageDetail() + ")");
    raise_damaged(file, failure.getMessageDetail());
}

}  // namespace

std::shared_ptr<Pdf> Pdf::open(std::shared_ptr<const MappedFile> file, const std::string& password) {
    if (file->bytes().empty()) throw Unreadable("it is empty");
    // Older files have their passwords in an encoding that whoever made them chose.
    const std::vector<std::string> spellings = QUtil::possible_repaired_encodings(password);
    for (std::size_t i = 0;; ++i) {
        const std::shared_ptr<Pdf> pdf(new Pdf(file));
        prepare(pdf->qpdf_);
        try {
            pdf->qpdf_.processInputSource(std::make_shared<Source>(file), spellings[i].c_str());
            pdf->qpdf_.getRoot();
            pdf->version_ = version_of(pdf->qpdf_);
            return pdf;
        } catch (const QPDFExc& failure) {
            if (failure.getErrorCode() == qpdf_e_password && i + 1 < spellings.size()) continue;
            raise_unreadable(*file, failure);
        } catch (const std::bad_alloc&) {
            throw;
        } catch (const std::exception& failure) {
            raise_damaged(*file, failure.what());
        }
    }
}

std::shared_ptr<Pdf> Pdf::create() {
    std::shared_ptr<Pdf> pdf(new Pdf(nullptr));
    prepare(pdf->qpdf_);
    pdf->qpdf_.emptyPDF();
    pdf->version_ = version_of(pdf->qpdf_);
    return pdf;
}

Pdf::Pdf(std::shared_ptr<const MappedFile> file) : file_(std::move(file)) {}

Pdf::~Pdf() = default;

void Pdf::insert_pages(Pdf& source, std::size_t position, std::size_t first, std::size_t count,
                       bool with_bookmarks) {
    pages();
    if (!assembly_) assembly_ = std::make_unique<Assembly>(*this);
    assembly_->insert(source, position, first, count, with_bookmarks);
    note_change();
}

void Pdf::settle() {
    if (assembly_) assembly_->settle();
}

void Pdf::keep(const std::shared_ptr<const MappedFile>& file) {
    if (kept_.empty() || kept_.back() != file) kept_.push_back(file);
}

std::int32_t Pdf::page_count() {
    if (!has_all_pages_) {
        if (const auto claimed = claimed_page_count(qpdf_)) return *claimed;
    }
    return static_cast<std::int32_t>(pages().size());
}

void Pdf::mend_page_count() {
    const auto count = static_cast<long long>(pages().size());
    QPDFObjectHandle root = qpdf_.getRoot().getKey("/Pages");
    if (root.isDictionary()) root.replaceKey("/Count", QPDFObjectHandle::newInteger(count));
}

PageList& Pdf::pages() {
    find_pages(std::numeric_limits<std::size_t>::max());
    return pages_;
}

std::optional<Page> Pdf::page(std::size_t number) {
    find_pages(number);
    return number < pages_.size() ? std::optional(pages_[number]) : std::nullopt;
}

void Pdf::find_pages(std::size_t last) {
    if (has_all_pages_) return;
    if (!walk_) walk_.emplace(qpdf_);
    while (pages_.size() <= last) {
        std::optional<Page> page = walk_->next();
        if (!page) {
            has_all_pages_ = true;
            missing_pages_ = walk_->missing();
            walk_.reset();
            return;
        }
        pages_.push_back(*std::move(page));
    }
}

}  // namespace foliant::hosts::acrobat::structure
