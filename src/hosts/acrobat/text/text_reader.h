#pragma once

#include <memory>
#include <string>

#include "hosts/acrobat/text/page_source.h"
#include "hosts/acrobat/text/page_text.h"

namespace foliant::hosts::acrobat::text {

/// Reads the text of a file's pages. Who asks for one page after the other, from the first one on, has the next
/// ones read meanwhile, on as many processors as there are. To be used by one thread.
class TextReader {
  public:
    /// Throws Unreadable.
    TextReader(Bytes bytes, std::string password);
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;
    ~TextReader();

    int page_count() const noexcept;

    /// The text of a page, counted from 0. Throws what PageSource::read does.
    std::shared_ptr<const PageText> page(int number);

  private:
    class ReadAhead;

    Bytes bytes_;
    std::string password_;
    std::unique_ptr<PageSource> file_;
    int page_count_;
    int last_ = -1;
    std::shared_ptr<const PageText> last_text_;
    std::unique_ptr<ReadAhead> ahead_;
};

}  // namespace foliant::hosts::acrobat::text
