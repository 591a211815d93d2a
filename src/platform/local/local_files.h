#pragma once

#include "platform/files.h"
#include "platform/local/scratch_texts.h"

namespace foliant::platform::local {

/// The real files of this machine. Texts are written as they are: what the port calls the ANSI code page is
/// UTF-8 here. Every error names the file and the system's reason.
class LocalFiles : public Files {
  public:
    char separator() const noexcept override { return '/'; }

    /// Raises 70 when a folder on the way may not be searched, and 53 for anything that is no regular file.
    std::int64_t length(const std::string& path) override;

    /// "" and names with a separator are no bare names; there is no such entry.
    bool exists_in_current_folder(const std::string& name) override;

    /// A link is removed, not what it points to. A folder counts as no file: 53.
    void remove(const std::string& path) override;

    /// Raises 70 when the parent may not be written to, 61 when the disk is full.
    void make_folder(const std::string& path) override;

    /// A result raises 76 when the folder is missing, 75 for a folder or an empty path, 70 when it may not be
    /// written, 61 when the disk is full. Lines are kept back and written in larger pieces, so a full disk
    /// may show at `close` only. A result takes its name when it is closed, in place of what had it; one that
    /// is never closed leaves nothing. A scratch text touches nothing on the disk.
    std::unique_ptr<TextFile> create_text(const std::string& path, TextPurpose purpose) override;

    /// What `create_text` was asked for under that path as scratch, line by line; null when it was not.
    const ScratchTexts::Lines* scratch_text(const std::string& path) const {
        return scratch_texts_.find(path);
    }

    /// Names that begin with a dot are hidden. Names that come later are not listed; those that are gone when
    /// their turn comes are passed over. Links count as what they point to. Raises 57 when the folder cannot
    /// be read to its end.
    std::unique_ptr<Listing> list(const std::string& pattern) override;

  private:
    ScratchTexts scratch_texts_;
};

}  // namespace foliant::platform::local
