#include "hosts/acrobat/images/row_compressor.h"

#include <algorithm>
#include <array>
#include <limits>
#include <new>
#include <utility>

namespace foliant::hosts::acrobat::images {
namespace {

constexpr std::size_t piece = std::size_t{1} << 16U;

/// How far the predicted bytes are from 0, in either direction: what is small compresses well.
std::size_t cost(Row bytes) {
    std::size_t sum = 0;
    for (const unsigned char byte : bytes)
        sum += std::min<unsigned>(byte, 256U - byte);
    return sum;
}

}  // namespace

RowCompressor::RowCompressor(Prediction prediction, std::size_t pixel_bytes)
    : prediction_(prediction), pixel_bytes_(std::max<std::size_t>(pixel_bytes, 1)) {
    if (::deflateInit(&stream_, Z_DEFAULT_COMPRESSION) != Z_OK) throw std::bad_alloc();
}

RowCompressor::~RowCompressor() {
    ::deflateEnd(&stream_);
}

void RowCompressor::add(Row row) {
    if (prediction_ == Prediction::chosen)
        predict(row);
    else
        deflate_bytes(row, Z_NO_FLUSH);
}

void RowCompressor::predict(Row row) {
    enum Filter : unsigned char { none, sub, up };
    above_.resize(row.size());
    candidate_.resize(row.size() + 1);
    std::size_t least = std::numeric_limits<std::size_t>::max();
    for (const Filter filter : {none, sub, up}) {
        candidate_[0] = filter;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const unsigned before = i >= pixel_bytes_ ? row[i - pixel_bytes_] : 0U;
            const unsigned predicted = filter == sub ? before : filter == up ? above_[i] : 0U;
            candidate_[i + 1] = static_cast<unsigned char>(row[i] - predicted);
        }
        const std::size_t candidate_cost = cost(Row(candidate_).subspan(1));
        if (candidate_cost >= least) continue;
        least = candidate_cost;
        std::swap(best_, candidate_);
        candidate_.resize(row.size() + 1);
    }
    deflate_bytes(best_, Z_NO_FLUSH);
    std::copy(row.begin(), row.end(), above_.begin());
}

std::string RowCompressor::finish() {
    deflate_bytes({}, Z_FINISH);
    return std::move(compressed_);
}

void RowCompressor::deflate_bytes(Row bytes, int flush) {
    std::array<unsigned char, piece> out;
    do {
        // A row may be longer than the library's counter is wide.
        const std::size_t now = std::min<std::size_t>(bytes.size(), std::numeric_limits<uInt>::max());
        stream_.next_in = const_cast<unsigned char*>(bytes.data());
        stream_.avail_in = static_cast<uInt>(now);
        bytes = bytes.subspan(now);
        do {
            stream_.next_out = out.data();
            stream_.avail_out = static_cast<uInt>(out.size());
            ::deflate(&stream_, bytes.empty() ? flush : Z_NO_FLUSH);
            compressed_.append(reinterpret_cast<const char*>(out.data()), out.size() - stream_.avail_out);
        } while (stream_.avail_out == 0);
    } while (!bytes.empty());
}

}  // namespace foliant::hosts::acrobat::images
