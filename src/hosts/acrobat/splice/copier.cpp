#include "hosts/acrobat/splice/copier.h"

#include <algorithm>
#include <utility>
#include <zlib.h>

#include "hosts/acrobat/splice/strings.h"

namespace foliant::hosts::acrobat::splice {

using glance::Cursor;
using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

constexpr std::int64_t most_objects = 8'000'000;  // of a file; there is a number in memory for each
constexpr std::size_t worth_packing = 128;        // bytes

std::int64_t object_count(glance::PlainFile& file) {
    const Value size = entry(file.trailer(), "/Size");
    require(size.kind == Kind::integer && size.number <= most_objects);
    return size.number;
}

bool is_in(std::initializer_list<std::string_view> names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool is_tag_number(std::string_view key) {
    return key == "/StructParents" || key == "/StructParent";
}

/// Who refers to a node of the page tree means his file's, not what becomes of it here.
bool is_node_of_pages(const Value& value) {
    return value.kind == Kind::dictionary && value.text.find("/Pages") != std::string_view::npos &&
           entry(value, "/Type").text == "/Pages";
}

std::string packed(std::string_view data) {
    uLongf size = ::compressBound(static_cast<uLong>(data.size()));
    std::string bytes(size, '\0');
    const int result =
        ::compress(reinterpret_cast<Bytef*>(bytes.data()), &size, reinterpret_cast<const Bytef*>(data.data()),
                   static_cast<uLong>(data.size()));
    require(result == Z_OK);
    bytes.resize(size);
    return bytes;
}

}  // namespace

Copier::Copier(glance::PlainFile& file, Body& body, Tags tags)
    : file_(file), body_(body), tags_(tags), copies_(static_cast<std::size_t>(object_count(file))) {}

Copier::Copy& Copier::copy_of(const Value& reference) {
    require(reference.kind == Kind::reference && reference.number > 0 &&
            static_cast<std::uint64_t>(reference.number) < copies_.size());
    return copies_[static_cast<std::size_t>(reference.number)];
}

void Copier::stand_in(const Value& reference, std::int32_t number) {
    copy_of(reference) = {number, reference.generation};
}

std::int32_t Copier::number_of(const Value& reference) {
    Copy& copy = copy_of(reference);
    if (copy.number == 0) {
        copy = {body_.new_number(), reference.generation};
        waiting_.push_back({reference, copy.number});
    }
    require(copy.generation == reference.generation);
    return copy.number;
}

bool Copier::has_stand_in(const Value& reference) const {
    if (reference.kind != Kind::reference || reference.number <= 0 ||
        static_cast<std::uint64_t>(reference.number) >= copies_.size())
        return false;
    const Copy& copy = copies_[static_cast<std::size_t>(reference.number)];
    return copy.number != 0 && copy.generation == reference.generation;
}

bool Copier::may_name_places(std::string_view text) const {
    return changed_names_ &&
           (text.find("/Dest") != std::string_view::npos || text.find("/GoTo") != std::string_view::npos);
}

/// Copies the entry of a dictionary that leads to a place by its name. False for any other.
bool Copier::copy_name(const Value& dictionary, std::string_view key, const Value& value,
                       std::string& target) {
    const bool is_place =
        key == "/Dest" || (key == "/D" && file_.resolved(entry(dictionary, "/S")).text == "/GoTo");
    if (!changed_names_ || !is_place) return false;
    const Value place = file_.resolved(value);
    if (place.kind != Kind::name && !is_string(place)) return false;
    // A name can be spelt in several ways.
    require(place.kind != Kind::name || place.text.find('#') == std::string_view::npos);
    const std::string name =
        place.kind == Kind::name ? std::string(place.text.substr(1)) : string_bytes(place.text);
    const auto changed = changed_names_->find(name);
    target += string_text(changed == changed_names_->end() ? name : changed->second);
    return true;
}

void Copier::copy(std::string_view text, std::string& target) {
    if (may_name_places(text))
        copy_parts(Cursor(text).value(), target);
    else
        copy_tokens(text, target);
}

/// With every dictionary looked into.
void Copier::copy_parts(const Value& value, std::string& target) {
    if (value.kind == Kind::dictionary) {
        target += "<< ";
        copy_entries(value, {}, target);
        target += ">>";
    } else if (value.kind == Kind::array) {
        target += "[ ";
        glance::Items items(value);
        for (Value item; items.next(item); target += ' ')
            copy(item.text, target);
        target += ']';
    } else {
        copy_tokens(value.text, target);
    }
}

void Copier::copy_tokens(std::string_view text, std::string& target) {
    Cursor cursor(text);
    std::size_t copied = 0;
    std::size_t tag_key = std::string_view::npos;  // where one begins that was the last thing read
    for (cursor.skip_space(); !cursor.rest().empty(); cursor.skip_space()) {
        const std::size_t begin = cursor.position();
        const std::size_t key = std::exchange(tag_key, std::string_view::npos);
        if (cursor.skip("<<") || cursor.skip(">>") || cursor.skip("[") || cursor.skip("]")) continue;
        const Value value = cursor.value();
        if (value.kind == Kind::reference) {
            target += text.substr(copied, begin - copied);
            target += std::to_string(number_of(value));
            target += " 0 R";
            copied = cursor.position();
        } else if (value.kind == Kind::integer && key != std::string_view::npos) {
            target += text.substr(copied, key - copied);
            copied = cursor.position();
        } else if (tags_ == Tags::dropped && value.kind == Kind::name && is_tag_number(value.text)) {
            tag_key = begin;
        }
    }
    target += text.substr(copied);
}

void Copier::copy_entries(const Value& dictionary, std::initializer_list<std::string_view> but,
                          std::string& target) {
    glance::Entries entries(dictionary);
    std::string_view key;
    for (Value value; entries.next(key, value);) {
        if (is_in(but, key) || (tags_ == Tags::dropped && is_tag_number(key))) continue;
        target += key;
        target += ' ';
        if (!copy_name(dictionary, key, value, target)) copy(value.text, target);
        target += ' ';
    }
}

/// What has no filter gets one.
void Copier::copy_stream(const glance::Object& stream, std::string& target) {
    bool is_plain = true;
    glance::Entries entries(stream.value);
    std::string_view key;
    for (Value value; entries.next(key, value);) {
        require(!is_in({"/F", "/FFilter", "/FDecodeParms"}, key));  // the data of another file
        is_plain = is_plain && !is_in({"/Filter", "/DecodeParms"}, key) && value.text != "/Metadata";
    }
    target += "<< ";
    copy_entries(stream.value, {"/Length"}, target);
    if (!is_plain || stream.data.size() < worth_packing) {
        target += "/Length " + std::to_string(stream.data.size()) + " >>";
        return body_.put_data(stream.data);
    }
    const std::string bytes = packed(stream.data);
    target += "/Filter /FlateDecode /Length " + std::to_string(bytes.size()) + " >>\nstream\n";
    target += bytes;
    target += "\nendstream";
}

void Copier::copy_object(const Waiting& waiting) {
    const glance::Object object = file_.object(waiting.reference);
    std::string& target = body_.begin_object(waiting.number);
    if (object.is_stream)
        copy_stream(object, target);
    else
        copy(is_node_of_pages(object.value) ? "null" : object.value.text, target);
    body_.end_object();
}

void Copier::finish() {
    while (!waiting_.empty()) {
        const Waiting next = waiting_.back();
        waiting_.pop_back();
        copy_object(next);
    }
}

}  // namespace foliant::hosts::acrobat::splice
