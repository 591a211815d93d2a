#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/acrobat/splice/body.h"
#include "hosts/acrobat/splice/hint_tables.h"
#include "hosts/acrobat/splice/object_order.h"

namespace foliant::hosts::acrobat::splice {

/// A linearised file: whoever gets it over a network sees the first page before the rest has come, and finds in tables of
/// hints where the objects of every other page are.
class LinearisedFile {
  public:
    /// `header` are the lines that the file begins with. `whole` has at least one page and stays as it is as long as this
    /// is used. Throws Doubt for what cannot be linearised.
    LinearisedFile(std::string_view header, const Whole& whole);

    /// All of the file.
    void write(const Body::Write& write) const;

  private:
    using Numbers = std::vector<std::int32_t>;

    void number_objects();
    void number(const Numbers& old_numbers);
    std::size_t length_of(std::int32_t old_number) const;
    void place_objects();
    std::size_t place(const Numbers& old_numbers, std::size_t offset);
    Hints hints() const;
    void make_hints();

    std::string renumbered(std::string_view text, const std::vector<Mention>& mentions) const;
    std::string parameters(std::size_t file_length) const;
    std::string first_table() const;
    std::string main_table() const;
    void write_objects(const Numbers& old_numbers, const Body::Write& write) const;

    std::int32_t new_number(std::int32_t old_number) const {
        return new_numbers_[static_cast<std::size_t>(old_number)];
    }
    std::string new_mention(const Mention& mention) const;
    std::size_t offset_of(std::int32_t old_number) const {
        return offsets_[static_cast<std::size_t>(new_number(old_number))];
    }

    std::string_view header_;
    const Whole& whole_;
    std::vector<std::vector<Mention>> mentions_;  ///< by old numbers
    ObjectOrder order_;
    std::vector<std::int32_t> new_numbers_;  ///< by old ones; 0 for none
    std::vector<std::size_t> offsets_;       ///< by new numbers, without the hints until those are made
    std::int32_t last_number_ = 0;
    std::int32_t parameters_number_ = 0;
    std::int32_t hints_number_ = 0;
    std::size_t hints_offset_ = 0;
    std::size_t end_of_first_page_ = 0;
    std::size_t end_ = 0;  ///< of all objects
    std::string hints_;    ///< the object that has them
};

}  // namespace foliant::hosts::acrobat::splice
