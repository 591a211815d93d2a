#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "hosts/acrobat/text/page_text.h"

namespace foliant::hosts::acrobat::text {

/// The bytes of a PDF file, whoever has them.
struct Bytes {
    std::string_view view;
    std::shared_ptr<const void> keeper;  ///< keeps them where they are
};

/// Text that cannot be had; what() says why, without the file's name.
struct Unreadable : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The password is none of the file's.
struct WrongPassword : Unreadable {
    WrongPassword() : Unreadable("it is protected with another password") {}
};

/// A PDF file that is open for its text. For one thread; several may have the same bytes open.
class PageSource {
  public:
    virtual ~PageSource() = default;

    virtual int page_count() const = 0;

    /// The text of a page, counted from 0; empty for a page that is damaged. Throws Unreadable for one that
    /// holds more than any page does.
    virtual PageText read(int page) = 0;
};

/// Opens a file with the engine that reads text, which is no part of this room: whoever links the room says
/// where it is. `password` opens an encrypted file, as its user or its owner. Throws WrongPassword, or
/// Unreadable.
std::unique_ptr<PageSource> open_pages(const Bytes& bytes, const std::string& password);

}  // namespace foliant::hosts::acrobat::text
