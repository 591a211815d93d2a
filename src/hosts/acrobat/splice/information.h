#pragma once

#include <map>
#include <string>

#include "hosts/acrobat/glance/syntax.h"

namespace foliant::hosts::acrobat::splice {

/// What a document says of itself, by keys such as "Title": in its information dictionary and, the same, in its XMP
/// packet.
class Information {
  public:
    /// That of a document which is made here, now.
    static Information of_new_document();

    /// Adds an entry of the dictionary, its key with its slash. `text` is how the file is to have it; `value` what it
    /// was. Throws Doubt for a text in an encoding that only the engine knows.
    void add(const std::string& key, std::string text, const glance::Value& value);
    void set_packet(std::string packet) { packet_ = std::move(packet); }

    /// What stands in a file that is written now.
    struct Written {
        std::string dictionary;
        std::string packet;
    };
    Written written() const;

  private:
    std::map<std::string, std::string> entries_;     ///< as the file has them
    std::map<std::string, std::string> properties_;  ///< in UTF-8, those that XMP has, too
    std::string packet_;
};

/// The present time, as PDF writes dates.
std::string date_now();

/// What a string of a file says, in UTF-8. Throws Doubt for other encodings than ASCII and those of Unicode.
std::string text_of(const glance::Value& string);

}  // namespace foliant::hosts::acrobat::splice
