#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

struct _PopplerDocument;

namespace foliant::hosts::office::test {

/// A PDF file as poppler sees it. Pages count from 1, lengths are in points.
class PdfReader {
  public:
    explicit PdfReader(const std::filesystem::path& path);
    ~PdfReader();

    int pages() const;
    /// "612 x 792", rounded.
    std::string size(int page) const;
    /// The text of a page, its lines trimmed and joined by " / ".
    std::string text(int page) const;
    std::string title() const;

    struct Place {
        double left;
        double top;
    };
    /// Where the first occurrence of `words` begins.
    Place place(int page, const std::string& words) const;

    /// How far what is drawn between these heights reaches to the right.
    double right_end(int page, double top, double bottom) const;

    struct Look {
        std::string font;  ///< its name in the document
        double points;
        std::string color;  ///< "#ff0000"
    };
    /// How the first occurrence of `words` looks at its beginning.
    Look look(int page, const std::string& words) const;

  private:
    struct Page;
    Page page(int number) const;

    std::shared_ptr<_PopplerDocument> document_;
};

}  // namespace foliant::hosts::office::test
