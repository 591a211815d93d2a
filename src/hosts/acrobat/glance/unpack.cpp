#include "hosts/acrobat/glance/unpack.h"

#include <array>
#include <cstdlib>
#include <limits>
#include <zlib.h>

namespace foliant::hosts::acrobat::glance {

namespace {

constexpr std::size_t most_unpacked = std::size_t{16} << 20U;  // bytes
constexpr std::int64_t most_columns = 64;

/// Ends with the stream however it ended.
class Inflater {
  public:
    explicit Inflater(std::string_view data) {
        require(data.size() <= std::numeric_limits<uInt>::max());
        stream_.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
        stream_.avail_in = static_cast<uInt>(data.size());
        require(::inflateInit(&stream_) == Z_OK);
    }
    Inflater(const Inflater&) = delete;
    Inflater& operator=(const Inflater&) = delete;
    ~Inflater() { ::inflateEnd(&stream_); }

    std::string all() {
        std::string text;
        std::array<char, 65536> piece{};
        int state = Z_OK;
        while (state == Z_OK) {
            stream_.next_out = reinterpret_cast<Bytef*>(piece.data());
            stream_.avail_out = piece.size();
            state = ::inflate(&stream_, Z_NO_FLUSH);
            text.append(piece.data(), piece.size() - stream_.avail_out);
            require(text.size() <= most_unpacked);
        }
        require(state == Z_STREAM_END);
        return text;
    }

  private:
    z_stream stream_{};
};

unsigned paeth(int left, int above, int corner) {
    const int guess = left + above - corner;
    const int to_left = std::abs(guess - left);
    const int to_above = std::abs(guess - above);
    const int to_corner = std::abs(guess - corner);
    if (to_left <= to_above && to_left <= to_corner) return static_cast<unsigned>(left);
    return static_cast<unsigned>(to_above <= to_corner ? above : corner);
}

/// What PNG's predictor of that kind expects.
unsigned expected(char kind, int left, int above, int corner) {
    switch (kind) {
        case 0:
            return 0;
        case 1:
            return static_cast<unsigned>(left);
        case 2:
            return static_cast<unsigned>(above);
        case 3:
            return static_cast<unsigned>((left + above) / 2);
        case 4:
            return paeth(left, above, corner);
        default:
            throw Doubt();
    }
}

/// Undoes PNG's predictors: each row has its kind in front, and says how far its bytes are off.
std::string without_prediction(const std::string& rows, std::size_t columns) {
    require(rows.size() % (columns + 1) == 0);
    std::string text;
    text.reserve(rows.size());
    std::string above(columns, '\0');
    for (std::size_t row = 0; row < rows.size(); row += columns + 1) {
        std::string current(columns, '\0');
        for (std::size_t i = 0; i < columns; ++i) {
            const auto byte = [&](const std::string& of, std::size_t at) {
                return static_cast<int>(static_cast<unsigned char>(of[at]));
            };
            const unsigned guess = expected(rows[row], i > 0 ? byte(current, i - 1) : 0, byte(above, i),
                                            i > 0 ? byte(above, i - 1) : 0);
            current[i] = static_cast<char>(static_cast<unsigned char>(rows[row + 1 + i]) + guess);
        }
        text += current;
        above = std::move(current);
    }
    return text;
}

/// The value of an entry that is 1 where it is missing.
std::int64_t or_one(const Value& value) {
    require(value.kind == Kind::null || value.kind == Kind::integer);
    return value.kind == Kind::null ? 1 : value.number;
}

}  // namespace

std::string unpacked(const Value& dictionary, std::string_view data) {
    const Value filter = entry(dictionary, "/Filter");
    const Value parameters = entry(dictionary, "/DecodeParms");
    if (filter.kind == Kind::null && parameters.kind == Kind::null) return std::string(data);
    require(filter.kind == Kind::name && filter.text == "/FlateDecode");
    std::string text = Inflater(data).all();
    if (parameters.kind == Kind::null) return text;
    const std::int64_t predictor = or_one(entry(parameters, "/Predictor"));
    if (predictor == 1) return text;
    const std::int64_t columns = or_one(entry(parameters, "/Columns"));
    const Value bits = entry(parameters, "/BitsPerComponent");
    require(predictor >= 10 && predictor <= 15 && columns >= 1 && columns <= most_columns &&
            or_one(entry(parameters, "/Colors")) == 1 && (bits.kind == Kind::null || bits.number == 8));
    return without_prediction(text, static_cast<std::size_t>(columns));
}

}  // namespace foliant::hosts::acrobat::glance
