#pragma once

#include <map>
#include <string>
#include <vector>

namespace foliant::hosts::acrobat::test {

/// A PDF that is put together from the texts of its objects.
class PdfText {
  public:
    /// Object 1 is the catalogue, 2 the root of its page tree, unless they are set otherwise.
    PdfText();

    /// Sets object `number`: what stands between "obj" and "endobj".
    PdfText& set(int number, std::string body);
    /// Sets object `number` to a stream; `entries` go into its dictionary besides the length.
    PdfText& set_stream(int number, const std::string& data, const std::string& entries = "");
    /// Adds entries to the catalogue.
    PdfText& add_to_catalogue(const std::string& entries);
    /// Adds entries to the trailer.
    PdfText& add_to_trailer(const std::string& entries);

    /// The file, with a table of where its objects are.
    std::string file() const;

  private:
    std::map<int, std::string> objects_;
    std::string catalogue_;
    std::string trailer_;
};

/// A document with that many empty pages. Page n, from 1, is object 10 * n and shows `label` and its number;
/// `entries` go into each page's dictionary.
PdfText pages(int count, const std::string& label = "page", const std::string& entries = "");

}  // namespace foliant::hosts::acrobat::test
