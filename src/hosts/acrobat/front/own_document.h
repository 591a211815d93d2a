#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "hosts/acrobat/splice/spliced_document.h"
#include "hosts/pending_file.h"
#include "posix/file_descriptor.h"

namespace foliant::hosts::acrobat::front {

/// How a file is written.
enum class Form { plain, linearised };

/// A document that the front has opened or made itself: a plain file, or one that is put together of such. Everything
/// throws glance::Doubt for what only the engine can judge.
class OwnDocument {
  public:
    /// None.
    OwnDocument() = default;

    static OwnDocument created();
    /// Keeps the file open. Throws std::system_error, too.
    static OwnDocument opened(std::string path, posix::FileDescriptor& file);

    bool is_there() const noexcept { return plain_ != nullptr || spliced_ != nullptr; }
    /// "" for one that was created and not saved.
    const std::string& path() const noexcept { return path_; }
    std::int32_t page_count() const noexcept;

    /// Appends all pages of another one; false when it is none that was opened with that many, and changed nothing.
    bool append(OwnDocument& source, std::int32_t count, bool with_bookmarks);
    /// Whether it is another one than its file.
    bool is_changed() const noexcept { return spliced_ != nullptr; }

    /// Writes one that is changed.
    void write(OutputFile& output, Form form) const;
    void note_saved(const std::string& path) {
        if (path_.empty()) path_ = path;
    }

    /// The document as an open file, for the engine; none for one without pages that was created.
    posix::FileDescriptor hand_over();

  private:
    std::string path_;
    posix::FileDescriptor file_;
    std::unique_ptr<splice::PlainDocument> plain_;      ///< null for one that was created
    std::unique_ptr<splice::SplicedDocument> spliced_;  ///< null for one that nothing was appended to
};

}  // namespace foliant::hosts::acrobat::front
