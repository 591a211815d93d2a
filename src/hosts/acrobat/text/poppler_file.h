#pragma once

#include <cstdint>
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

/// A PDF file as poppler has it open. For one thread; several may have the same bytes open.
class PopplerFile {
  public:
    /// `password` opens an encrypted file, as its user or its owner. Throws WrongPassword, or Unreadable.
    PopplerFile(Bytes bytes, const std::string& password);
    PopplerFile(PopplerFile&&) noexcept;
    PopplerFile& operator=(PopplerFile&&) noexcept;
    ~PopplerFile();

    int page_count() const;

    /// The text of a page, counted from 0; empty for a page that is damaged. Throws Unreadable for one that
    /// holds more than any page does.
    PageText read(int page);

  private:
    struct Engine;
    std::unique_ptr<Engine> engine_;
};

}  // namespace foliant::hosts::acrobat::text
