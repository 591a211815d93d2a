#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/acrobat/glance/plain_file.h"
#include "hosts/acrobat/splice/body.h"

namespace foliant::hosts::acrobat::splice {

/// Copies objects of a file, with all that they refer to: their texts as they stand in it, but for the numbers of
/// objects. What is referred to twice is copied once; chains and loops of references take no stack. Everything throws
/// Doubt for what only the engine can judge.
class Copier {
  public:
    /// Whether what is copied keeps its numbers in the tree of tags, which is copied as well.
    enum class Tags { kept, dropped };

    Copier(glance::PlainFile& file, Body& body, Tags tags);
    Copier(const Copier&) = delete;
    Copier& operator=(const Copier&) = delete;

    /// What stands for an object of the file; it is not copied.
    void stand_in(const glance::Value& reference, std::int32_t number);
    bool has_stand_in(const glance::Value& reference) const;

    /// Names of places are other ones from now on, wherever links and bookmarks lead to them. All of them become texts,
    /// as those are that a document's tree of names has.
    void change_names(std::map<std::string, std::string> changed) { changed_names_ = std::move(changed); }

    /// The number of the copy of an object.
    std::int32_t number_of(const glance::Value& reference);
    /// Appends the text of an object.
    void copy(std::string_view text, std::string& target);
    /// Appends the entries of a dictionary, all but those named.
    void copy_entries(const glance::Value& dictionary, std::initializer_list<std::string_view> but,
                      std::string& target);

    /// Copies everything that what was copied so far refers to.
    void finish();

  private:
    struct Waiting {
        glance::Value reference;
        std::int32_t number;
    };

    struct Copy {
        std::int32_t number = 0;  ///< 0 for what was not met
        std::int64_t generation = 0;
    };

    Copy& copy_of(const glance::Value& reference);
    bool may_name_places(std::string_view text) const;
    bool copy_name(const glance::Value& dictionary, std::string_view key, const glance::Value& value,
                   std::string& target);
    void copy_parts(const glance::Value& value, std::string& target);
    void copy_tokens(std::string_view text, std::string& target);
    void copy_object(const Waiting& waiting);
    void copy_stream(const glance::Object& stream, std::string& target);

    glance::PlainFile& file_;
    Body& body_;
    Tags tags_;
    std::vector<Copy> copies_;  ///< by the number of the original
    std::vector<Waiting> waiting_;
    std::optional<std::map<std::string, std::string>>
        changed_names_;  ///< nothing in a file that names no places
};

}  // namespace foliant::hosts::acrobat::splice
