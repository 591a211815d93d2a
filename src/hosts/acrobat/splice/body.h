#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace foliant::hosts::acrobat::splice {

/// "7 0 R", for the object of that number.
inline std::string reference(std::int32_t number) {
    return std::to_string(number) + " 0 R";
}

/// Objects of a file that is being made, as they will stand in it. The data of streams are not copied: they stay where
/// they are until the file is written.
class Body {
  public:
    using Write = std::function<void(std::string_view bytes)>;

    /// `begin` is the offset of its first byte in the file; `offsets` are those of the objects before it.
    explicit Body(std::size_t begin, std::vector<std::size_t> offsets = {0})
        : begin_(begin), offsets_(std::move(offsets)) {}

    /// The number of an object that is to come.
    std::int32_t new_number() {
        offsets_.push_back(0);
        return static_cast<std::int32_t>(offsets_.size()) - 1;
    }
    /// The text of the object of that number: `end_object` follows what is appended.
    std::string& begin_object(std::int32_t number);
    void end_object() { text_ += "\nendobj\n"; }
    /// The data of the stream whose dictionary was appended last; they stay where they are.
    void put_data(std::string_view data);
    void put_object(std::int32_t number, std::string_view text);

    std::size_t end() const noexcept { return begin_ + text_.size() + data_bytes_; }
    /// Where each object is in the file, by their numbers; 0 for none.
    const std::vector<std::size_t>& offsets() const noexcept { return offsets_; }
    /// As many bytes as the file has between its beginning and its end.
    void write(const Write& write) const;

    /// An object as it will stand in the file: the data of a stream, if they are not part of the text, and what is around
    /// them. All of it stays where it is as long as the body is not changed.
    struct Object {
        std::string_view text;
        std::string_view data{};
        std::string_view behind_data{};
    };
    /// Puts the objects that this body has in their places by number; those of others stay as they are.
    void list(std::vector<Object>& objects) const;

    /// What it holds; to return to that.
    struct Mark {
        std::size_t text;
        std::size_t data;
        std::size_t data_bytes;
        std::size_t numbers;
    };
    Mark mark() const noexcept { return {text_.size(), data_.size(), data_bytes_, offsets_.size()}; }
    void return_to(const Mark& mark);

  private:
    struct Data {
        std::size_t at;  ///< in the text
        std::string_view bytes;
    };

    std::size_t begin_;
    std::string text_;
    std::vector<Data> data_;
    std::size_t data_bytes_ = 0;
    std::vector<std::size_t> offsets_;
};

}  // namespace foliant::hosts::acrobat::splice
