#include "hosts/acrobat/splice/hint_tables.h"

#include <algorithm>
#include <bit>
#include <limits>

#include "hosts/acrobat/glance/syntax.h"

namespace foliant::hosts::acrobat::splice {

namespace {

constexpr std::size_t byte = 8;

/// Numbers of so many bits each, the highest bit first.
class Bits {
  public:
    void put(std::size_t number, std::size_t width) {
        glance::require(number <= std::numeric_limits<std::uint32_t>::max());
        for (; width > 0; --width) {
            if (used_ == 0) bytes_ += '\0';
            const auto bit = static_cast<unsigned>(number >> (width - 1)) & 1U;
            bytes_.back() =
                static_cast<char>(static_cast<unsigned char>(bytes_.back()) | (bit << (byte - 1 - used_)));
            used_ = (used_ + 1) % byte;
        }
    }
    void put16(std::size_t number) { put(number, 16); }
    void put32(std::size_t number) { put(number, 32); }
    /// The next number begins with a byte.
    void end_column() { used_ = 0; }

    const std::string& bytes() const noexcept { return bytes_; }

  private:
    std::string bytes_;
    std::size_t used_ = 0;  ///< of the last byte
};

/// A column of a table, of which the least number stands in the head and the rest of each in as few bits as will do.
struct Column {
    explicit Column(std::vector<std::size_t> all) : numbers(std::move(all)) {
        if (numbers.empty()) return;
        const auto [low, high] = std::ranges::minmax(numbers);
        least = low;
        width = static_cast<std::size_t>(std::bit_width(high - low));
    }
    void put(Bits& bits) const {
        for (const std::size_t number : numbers)
            bits.put(number - least, width);
        bits.end_column();
    }

    std::vector<std::size_t> numbers;
    std::size_t least = 0;
    std::size_t width = 0;
};

template <typename Get>
Column column_of(const std::vector<Hints::Page>& pages, Get get) {
    std::vector<std::size_t> numbers;
    numbers.reserve(pages.size());
    for (const Hints::Page& page : pages)
        numbers.push_back(get(page));
    return Column(std::move(numbers));
}

void put_pages(Bits& bits, const Hints& hints) {
    const Column objects = column_of(hints.pages, [](const Hints::Page& page) { return page.objects; });
    const Column lengths = column_of(hints.pages, [](const Hints::Page& page) { return page.length; });
    Column shared = column_of(hints.pages, [](const Hints::Page& page) { return page.shared.size(); });
    // The head has no place for the least of these.
    shared.width = static_cast<std::size_t>(std::bit_width(std::ranges::max(shared.numbers)));
    shared.least = 0;
    const auto place_width = static_cast<std::size_t>(std::bit_width(hints.shared.size()));
    bits.put32(objects.least);
    bits.put32(hints.first_page_offset);
    bits.put16(objects.width);
    bits.put32(lengths.least);
    bits.put16(lengths.width);
    bits.put32(0);  // where in a page what it shows begins: at its beginning,
    bits.put16(0);
    bits.put32(lengths.least);  // and it is as long as the page
    bits.put16(lengths.width);
    bits.put16(shared.width);
    bits.put16(place_width);
    bits.put16(0);  // when in the page a shared object is wanted: nothing is said,
    bits.put16(4);  // in quarters
    objects.put(bits);
    lengths.put(bits);
    shared.put(bits);
    for (const Hints::Page& page : hints.pages)
        for (const std::size_t place : page.shared)
            bits.put(place, place_width);
    bits.end_column();
    lengths.put(bits);
}

void put_shared(Bits& bits, const Hints& hints) {
    const Column lengths(hints.shared);
    bits.put32(static_cast<std::size_t>(hints.shared_number));
    bits.put32(hints.shared_offset);
    bits.put32(hints.shared_first_page);
    bits.put32(hints.shared.size());
    bits.put16(0);  // each is one object
    bits.put32(lengths.least);
    bits.put16(lengths.width);
    lengths.put(bits);
    for (std::size_t i = 0; i < hints.shared.size(); ++i)
        bits.put(0, 1);  // without a signature
    bits.end_column();
}

}  // namespace

HintTables tables_of(const Hints& hints) {
    Bits bits;
    put_pages(bits, hints);
    const std::size_t shared = bits.bytes().size();
    put_shared(bits, hints);
    const std::size_t outlines = hints.outlines == 0 ? 0 : bits.bytes().size();
    if (hints.outlines > 0) {
        bits.put32(static_cast<std::size_t>(hints.outlines_number));
        bits.put32(hints.outlines_offset);
        bits.put32(hints.outlines);
        bits.put32(hints.outlines_length);
    }
    return {bits.bytes(), shared, outlines};
}

}  // namespace foliant::hosts::acrobat::splice
