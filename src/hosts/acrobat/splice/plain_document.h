#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/glance/plain_file.h"

namespace foliant::hosts::acrobat::splice {

/// The bytes of a file, and what keeps them where they are.
struct FileBytes {
    std::string_view text;
    std::shared_ptr<const void> owner;
};

/// A page of a file: its dictionary, and what it has from the nodes above it.
struct PlainPage {
    glance::Value reference;
    glance::Value dictionary;
    glance::Value inherited[4]{};  ///< by `inherited_keys`; null where there is none
};

inline constexpr std::string_view inherited_keys[] = {"/Resources", "/MediaBox", "/CropBox", "/Rotate"};

/// A bookmark of a file.
struct PlainBookmark {
    glance::Value reference;
    glance::Value dictionary;
    std::ptrdiff_t parent = -1;  ///< among the file's bookmarks; -1 for the outermost
    bool is_open = false;
};

/// A file that can be put together with others without an engine, as far as it was looked at. Everything throws Doubt
/// for what only the engine can judge.
class PlainDocument {
  public:
    /// Reads the tables of the file and the number of its pages.
    explicit PlainDocument(FileBytes bytes);
    PlainDocument(const PlainDocument&) = delete;
    PlainDocument& operator=(const PlainDocument&) = delete;

    const FileBytes& bytes() const noexcept { return bytes_; }
    glance::PlainFile& file() noexcept { return file_; }
    std::int32_t page_count() const noexcept { return page_count_; }

    /// The version of PDF that it says it is in: 17 for 1.7.
    int version() const;
    glance::Value catalogue() { return file_.resolved(glance::entry(file_.trailer(), "/Root")); }
    /// As many as `page_count` says, in their order.
    const std::vector<PlainPage>& pages();
    /// Each after the one above it and the one before it.
    std::vector<PlainBookmark> bookmarks();

  private:
    struct Level;
    Level enter(const glance::Value& node, const PlainPage& above);

    FileBytes bytes_;
    glance::PlainFile file_;
    std::int32_t page_count_;
    std::vector<PlainPage> pages_;
};

}  // namespace foliant::hosts::acrobat::splice
