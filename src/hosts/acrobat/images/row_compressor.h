#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>
#include <zlib.h>

namespace foliant::hosts::acrobat::images {

using Row = std::span<const unsigned char>;

/// Compresses rows of pixels as a PDF holds them: deflated, and where that helps predicted from the row above
/// or the pixel before, as in a PNG.
class RowCompressor {
  public:
    enum class Prediction {
        none,    ///< For indexes and single bits: the rows as they are, without a filter byte.
        chosen,  ///< For colours: the best of three predictions for each row.
        given,   ///< Rows come with their filter byte.
    };

    /// `pixel_bytes` is how far back the pixel before lies, at least 1.
    RowCompressor(Prediction prediction, std::size_t pixel_bytes);
    RowCompressor(const RowCompressor&) = delete;
    RowCompressor& operator=(const RowCompressor&) = delete;
    ~RowCompressor();

    void add(Row row);
    /// All that was added; nothing can be added afterwards.
    std::string finish();

  private:
    void predict(Row row);
    void deflate_bytes(Row bytes, int flush);

    Prediction prediction_;
    std::size_t pixel_bytes_;
    z_stream stream_{};
    std::string compressed_;
    std::vector<unsigned char> above_;
    std::vector<unsigned char> candidate_;
    std::vector<unsigned char> best_;
};

}  // namespace foliant::hosts::acrobat::images
