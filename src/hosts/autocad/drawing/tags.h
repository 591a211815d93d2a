#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/autocad/geometry/geometry.h"

namespace foliant::hosts::autocad {

/// A drawing that cannot be read: why, in words that go on after "it".
class Unreadable : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A group of a DXF file: what the value means, and the value as it stands there.
struct Tag {
    int code = 0;
    std::string_view value;  ///< without blanks around it
};

/// A whole number; 0 where there is none.
int integer_of(const Tag& tag) noexcept;
/// A number; NaN where there is none, so that nothing is drawn where nobody knows.
double number_of(const Tag& tag) noexcept;

/// Several groups that say what one thing is. Looking one up finds the first with that code.
class Tags : public std::span<const Tag> {
  public:
    using std::span<const Tag>::span;
    Tags(std::span<const Tag> tags) : std::span<const Tag>(tags) {}  // NOLINT: a span it is

    const Tag* find(int code) const noexcept;
    bool has(int code) const noexcept { return find(code) != nullptr; }
    int integer(int code, int otherwise = 0) const noexcept;
    double number(int code, double otherwise = 0) const noexcept;
    std::string_view text(int code, std::string_view otherwise = {}) const noexcept;
    /// The numbers with this code and those 10 and 20 above it.
    Point point(int code, Point otherwise = {}) const noexcept;
    /// What follows a subclass marker up to the next; everything where there is no such marker.
    Tags subclass(std::string_view marker) const noexcept;
};

/// All groups of a file; the bytes outlive them.
class TagFile {
  public:
    /// Reads the text form of DXF, and the binary one. What is left of a file that breaks off is read. Throws
    /// Unreadable for what is no DXF.
    explicit TagFile(std::string bytes);
    TagFile(const TagFile&) = delete;
    TagFile& operator=(const TagFile&) = delete;

    Tags tags() const noexcept { return tags_; }

  private:
    std::string bytes_;
    std::vector<Tag> tags_;
};

}  // namespace foliant::hosts::autocad
