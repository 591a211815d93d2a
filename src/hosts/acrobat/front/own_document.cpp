#include "hosts/acrobat/front/own_document.h"

#include <cerrno>
#include <sys/mman.h>
#include <system_error>
#include <utility>

#include "hosts/mapped_file.h"

namespace foliant::hosts::acrobat::front {

namespace {

constexpr std::size_t piece_size = std::size_t{1} << 16U;

/// Fewer and larger writes than the document has pieces.
void write_in_pieces(const splice::SplicedDocument& document, Form form, const splice::Body::Write& write) {
    std::string piece;
    piece.reserve(piece_size);
    const auto add = [&](std::string_view bytes) {
        if (piece.size() + bytes.size() > piece_size) {
            write(piece);
            piece.clear();
        }
        if (bytes.size() > piece_size)
            write(bytes);
        else
            piece += bytes;
    };
    form == Form::linearised ? document.write_linearised(add) : document.write(add);
    write(piece);
}

}  // namespace

OwnDocument OwnDocument::created() {
    OwnDocument document;
    document.spliced_ = std::make_unique<splice::SplicedDocument>();
    return document;
}

OwnDocument OwnDocument::opened(std::string path, posix::FileDescriptor& file) {
    OwnDocument document;
    const auto mapped = std::make_shared<const MappedFile>(file.get());
    document.plain_ = std::make_unique<splice::PlainDocument>(splice::FileBytes{mapped->bytes(), mapped});
    document.path_ = std::move(path);
    document.file_ = std::move(file);
    return document;
}

std::int32_t OwnDocument::page_count() const noexcept {
    return spliced_ ? static_cast<std::int32_t>(spliced_->page_count()) : plain_->page_count();
}

bool OwnDocument::append(OwnDocument& source, std::int32_t count, bool with_bookmarks) {
    if (source.plain_ == nullptr || source.is_changed() || count != source.page_count()) return false;
    const bool is_first = spliced_ == nullptr;
    if (is_first) spliced_ = std::make_unique<splice::SplicedDocument>(*plain_);
    try {
        spliced_->append(*source.plain_, with_bookmarks);
    } catch (...) {
        if (is_first) spliced_.reset();
        throw;
    }
    return true;
}

void OwnDocument::write(OutputFile& output, Form form) const {
    write_in_pieces(*spliced_, form, [&](std::string_view bytes) { output.write(bytes); });
}

posix::FileDescriptor OwnDocument::hand_over() {
    if (!is_changed()) return std::move(file_);
    if (path_.empty() && page_count() == 0) return {};
    posix::FileDescriptor file(::memfd_create("document", MFD_CLOEXEC));
    if (!file) throw std::system_error(errno, std::generic_category(), "cannot make a file");
    const int descriptor = file.get();
    write_in_pieces(*spliced_, Form::plain,
                    [&](std::string_view bytes) { write_all(descriptor, bytes, path_); });
    return file;
}

}  // namespace foliant::hosts::acrobat::front
