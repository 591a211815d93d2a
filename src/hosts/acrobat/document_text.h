#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "hosts/acrobat/structure/pdf.h"
#include "hosts/acrobat/text/finder.h"
#include "hosts/acrobat/text/text_reader.h"

namespace foliant::hosts::acrobat {

/// The text of an open document: of its file, or of what it has become since. Of it, `most_bytes` may stay in
/// memory for later searches.
class DocumentText {
  public:
    /// Of a file that `password` opens. Throws text::Unreadable.
    DocumentText(const std::shared_ptr<const MappedFile>& file, const std::string& password,
                 std::size_t most_bytes);

    /// Of a document that was made or changed here. Throws text::Unreadable.
    DocumentText(structure::Pdf& pdf, std::size_t most_bytes);

    DocumentText(const DocumentText&) = delete;
    DocumentText& operator=(const DocumentText&) = delete;

    text::TextReader& pages() noexcept { return *reader_; }
    text::Finder& finder() noexcept { return finder_; }

  private:
    DocumentText(std::unique_ptr<text::TextReader> reader, std::size_t most_bytes);

    std::unique_ptr<text::TextReader> reader_;
    text::Finder finder_;
};

}  // namespace foliant::hosts::acrobat
