#include "hosts/acrobat/splice/linearised_file.h"

#include <cstdio>
#include <limits>
#include <map>
#include <numeric>
#include <utility>

#include "hosts/acrobat/glance/syntax.h"

namespace foliant::hosts::acrobat::splice {

using glance::require;

namespace {

std::vector<std::vector<Mention>> all_mentions(const Whole& whole) {
    std::vector<std::vector<Mention>> mentions(whole.objects.size());
    for (std::size_t i = 0; i < mentions.size(); ++i)
        if (!whole.objects[i].text.empty()) mentions[i] = mentions_in_object(whole.objects[i].text);
    return mentions;
}

/// As wide as any number can get: what stands behind it is known before the number is.
std::string padded(std::size_t number) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%10zu", number);
    return digits;
}

std::string table_line(std::size_t offset) {
    char line[32];
    std::snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
    return line;
}

std::size_t digits_of(std::int32_t number) {
    return std::to_string(number).size();
}

}  // namespace

LinearisedFile::LinearisedFile(std::string_view header, const Whole& whole)
    : header_(header), whole_(whole), mentions_(all_mentions(whole)), order_(whole, mentions_) {
    number_objects();
    place_objects();
    make_hints();
}

/// What comes after the first page has the lowest numbers: the table at the beginning is of one piece then.
void LinearisedFile::number_objects() {
    new_numbers_.resize(whole_.objects.size());
    for (const Numbers& page : order_.pages)
        number(page);
    number(order_.shared);
    number(order_.rest);
    parameters_number_ = ++last_number_;
    number(order_.opening);
    hints_number_ = ++last_number_;
    number(order_.first_page);
    offsets_.resize(static_cast<std::size_t>(last_number_) + 1);
}

void LinearisedFile::number(const Numbers& old_numbers) {
    for (const std::int32_t old_number : old_numbers)
        new_numbers_[static_cast<std::size_t>(old_number)] = ++last_number_;
}

/// Null where there is nothing: readers differ over what a reference to it is.
std::string LinearisedFile::new_mention(const Mention& mention) const {
    return is_nothing(whole_, mention.number) ? "null" : std::to_string(new_number(mention.number)) + " 0 R";
}

std::size_t LinearisedFile::length_of(std::int32_t old_number) const {
    const auto index = static_cast<std::size_t>(old_number);
    const Body::Object& object = whole_.objects[index];
    std::size_t length = object.text.size() + object.data.size() + object.behind_data.size() +
                         digits_of(new_number(old_number)) - digits_of(old_number);
    for (const Mention& mention : mentions_[index])
        length = length - mention.length + new_mention(mention).size();
    return length;
}

/// Returns the offset behind them.
std::size_t LinearisedFile::place(const Numbers& old_numbers, std::size_t offset) {
    for (const std::int32_t old_number : old_numbers) {
        offsets_[static_cast<std::size_t>(new_number(old_number))] = offset;
        offset += length_of(old_number);
    }
    return offset;
}

void LinearisedFile::place_objects() {
    offsets_[static_cast<std::size_t>(parameters_number_)] = header_.size();
    hints_offset_ = place(order_.opening, header_.size() + parameters(0).size() + first_table().size());
    end_of_first_page_ = place(order_.first_page, hints_offset_);
    end_ = end_of_first_page_;
    for (const Numbers& page : order_.pages)
        end_ = place(page, end_);
    end_ = place(order_.rest, place(order_.shared, end_));
    require(end_ <= std::numeric_limits<std::uint32_t>::max());  // no hint tells of more
}

Hints LinearisedFile::hints() const {
    const auto length = [&](const Numbers& old_numbers) {
        return std::accumulate(old_numbers.begin(), old_numbers.end(), std::size_t{0},
                               [&](std::size_t sum, std::int32_t number) { return sum + length_of(number); });
    };
    Hints hints;
    hints.first_page_offset = hints_offset_;
    hints.pages.push_back({order_.first_page.size(), length(order_.first_page)});
    std::map<std::int32_t, std::size_t> places;
    for (const Numbers* const list : {&order_.first_page, &order_.shared}) {
        for (const std::int32_t number : *list) {
            places[number] = hints.shared.size();
            hints.shared.push_back(length_of(number));
        }
    }
    hints.shared_first_page = order_.first_page.size();
    if (!order_.shared.empty()) {
        hints.shared_number = new_number(order_.shared.front());
        hints.shared_offset = offset_of(order_.shared.front());
    }
    for (std::size_t i = 0; i < order_.pages.size(); ++i) {
        Hints::Page page{order_.pages[i].size(), length(order_.pages[i])};
        for (const std::int32_t number : order_.taken_by_page[i])
            page.shared.push_back(places.at(number));
        hints.pages.push_back(std::move(page));
    }
    if (whole_.outlines != 0) {
        hints.outlines = order_.outlines.size();
        hints.outlines_number = new_number(whole_.outlines);
        hints.outlines_offset = offset_of(whole_.outlines);
        hints.outlines_length = length(order_.outlines);
    }
    return hints;
}

/// Makes them, and room for them in front of the first page.
void LinearisedFile::make_hints() {
    const HintTables tables = tables_of(hints());
    hints_ = std::to_string(hints_number_) + " 0 obj\n<< /S " + std::to_string(tables.shared) +
             (tables.outlines == 0 ? "" : " /O " + std::to_string(tables.outlines)) + " /Length " +
             std::to_string(tables.bytes.size()) + " >>\nstream\n" + tables.bytes + "\nendstream\nendobj\n";
    for (std::size_t& offset : offsets_)
        if (offset >= hints_offset_) offset += hints_.size();
    offsets_[static_cast<std::size_t>(hints_number_)] = hints_offset_;
    end_of_first_page_ += hints_.size();
    end_ += hints_.size();
}

std::string LinearisedFile::renumbered(std::string_view text, const std::vector<Mention>& mentions) const {
    std::string result;
    std::size_t done = 0;
    for (const Mention& mention : mentions) {
        result += text.substr(done, mention.at - done);
        result += new_mention(mention);
        done = mention.at + mention.length;
    }
    return result += text.substr(done);
}

std::string LinearisedFile::parameters(std::size_t file_length) const {
    // What comes before the table's first line, for people who look for the line.
    const std::size_t before_first_line =
        end_ + std::string_view("xref\n0 ").size() + digits_of(parameters_number_);
    return std::to_string(parameters_number_) + " 0 obj\n<< /Linearized 1 /L " + padded(file_length) +
           " /H [ " + padded(hints_offset_) + " " + padded(hints_.size()) + " ] /O " +
           padded(static_cast<std::size_t>(new_number(whole_.pages.front()))) + " /E " +
           padded(end_of_first_page_) + " /N " + padded(whole_.pages.size()) + " /T " +
           padded(before_first_line) + " >>\nendobj\n";
}

/// That of the first page and what comes before it.
std::string LinearisedFile::first_table() const {
    const auto size = static_cast<std::size_t>(last_number_) + 1;
    const auto first = static_cast<std::size_t>(parameters_number_);
    std::string table = "xref\n" + std::to_string(first) + " " + std::to_string(size - first) + "\n";
    for (std::size_t number = first; number < size; ++number)
        table += table_line(offsets_[number]);
    return table + "trailer << " + renumbered(whole_.trailer, mentions_in(whole_.trailer)) + " /Size " +
           std::to_string(size) + " /Prev " + padded(end_) + " >>\nstartxref\n0\n%%EOF\n";
}

std::string LinearisedFile::main_table() const {
    const auto size = static_cast<std::size_t>(parameters_number_);
    std::string table = "xref\n0 " + std::to_string(size) + "\n0000000000 65535 f \n";
    for (std::size_t number = 1; number < size; ++number)
        table += table_line(offsets_[number]);
    return table + "trailer << /Size " + std::to_string(size) + " >>\nstartxref\n" +
           std::to_string(header_.size() + parameters(0).size()) + "\n%%EOF\n";
}

void LinearisedFile::write_objects(const Numbers& old_numbers, const Body::Write& write) const {
    for (const std::int32_t old_number : old_numbers) {
        const auto index = static_cast<std::size_t>(old_number);
        const Body::Object& object = whole_.objects[index];
        write(std::to_string(new_number(old_number)));
        write(std::string_view(renumbered(object.text, mentions_[index])).substr(digits_of(old_number)));
        write(object.data);
        write(object.behind_data);
    }
}

void LinearisedFile::write(const Body::Write& write) const {
    const std::string table = main_table();
    write(header_);
    write(parameters(end_ + table.size()));
    write(first_table());
    write_objects(order_.opening, write);
    write(hints_);
    write_objects(order_.first_page, write);
    for (const Numbers& page : order_.pages)
        write_objects(page, write);
    write_objects(order_.shared, write);
    write_objects(order_.rest, write);
    write(table);
}

}  // namespace foliant::hosts::acrobat::splice
