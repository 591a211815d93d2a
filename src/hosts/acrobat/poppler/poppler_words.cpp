#include "hosts/acrobat/poppler/poppler_words.h"

#include <TextOutputDev.h>
#include <algorithm>
#include <cmath>
#include <glib.h>
#include <span>

#include "hosts/acrobat/text/letters.h"
#include "hosts/acrobat/text/reading_direction.h"

namespace foliant::hosts::acrobat::text {
namespace {

constexpr char32_t blank = U' ';

struct PlacedWord {
    const TextWord* word = nullptr;
    bool blank_behind = false;
};

/// The words of a line as they are seen.
struct Line {
    std::vector<PlacedWord> words;
    Gap end = Gap::line_end;
};

char32_t letter_of(const TextWord& word, int position) {
    return *word.getChar(position);
}

/// The letters of a word, which is not empty.
std::span<const Unicode> letters_of(const TextWord& word) {
    return {word.getChar(0), static_cast<std::size_t>(word.getLength())};
}

/// Letters from right to left come behind this one.
constexpr char32_t first_to_the_left = 0x0590;

bool may_be_to_the_left(const TextWord& word) {
    return std::ranges::any_of(letters_of(word), [](Unicode letter) { return letter >= first_to_the_left; });
}

/// Whether letters from right to left occur in the words, and prevail.
class Directions {
  public:
    void count(const TextWord& word) {
        for (const char32_t letter : letters_of(word)) {
            if (is_right_to_left(letter))
                ++to_the_left_;
            else if (g_unichar_isalpha(letter) != 0)
                ++to_the_right_;
        }
    }
    bool any_to_the_left() const noexcept { return to_the_left_ > 0; }
    bool mostly_to_the_left() const noexcept { return to_the_left_ > to_the_right_; }

  private:
    std::size_t to_the_left_ = 0;
    std::size_t to_the_right_ = 0;
};

/// Writes lines into a page's text, one behind the other.
class Writer {
  public:
    Writer(PageText& page, const Directions& directions) : page_(page), directions_(directions) {}

    void add(const Line& line) {
        if (line.words.empty()) return;
        if (directions_.any_to_the_left() && has_letters_to_the_left(line))
            add_reordered(line);
        else
            add_as_seen(line);
        page_.runs.back().gap = line.end;
    }

  private:
    static bool has_letters_to_the_left(const Line& line) {
        return std::any_of(line.words.begin(), line.words.end(), [](const PlacedWord& placed) {
            Directions directions;
            directions.count(*placed.word);
            return directions.any_to_the_left();
        });
    }

    void add_as_seen(const Line& line) {
        for (const auto& [word, blank_behind] : line.words) {
            begin_run(*word, word->getEdge(0));
            const std::span letters = letters_of(*word);
            page_.letters.append(letters.begin(), letters.end());
            for (int i = 1; i <= word->getLength(); ++i)
                page_.edges.push_back(static_cast<float>(word->getEdge(i)));
            page_.runs.back().length = static_cast<std::uint32_t>(letters.size());
            page_.runs.back().gap = blank_behind ? Gap::blank : Gap::none;
        }
    }

    void add_reordered(const Line& line) {
        std::vector<Glyph> glyphs = seen(line);
        put_in_reading_order(glyphs, directions_.mostly_to_the_left());
        const std::size_t first_run = page_.runs.size();
        for (std::size_t i = 0; i < glyphs.size();) {
            if (glyphs[i].letter == blank) {
                if (page_.runs.size() > first_run) page_.runs.back().gap = Gap::blank;
                ++i;
            } else {
                i = add_stretch(glyphs, i, *line.words[glyphs[i].word].word);
            }
        }
    }

    static std::vector<Glyph> seen(const Line& line) {
        std::vector<Glyph> glyphs;
        for (std::uint32_t number = 0; number < line.words.size(); ++number) {
            const auto& [word, blank_behind] = line.words[number];
            for (int i = 0; i < word->getLength(); ++i)
                glyphs.push_back({letter_of(*word, i), number, static_cast<std::uint32_t>(i)});
            if (blank_behind) glyphs.push_back({blank, number, 0});
        }
        return glyphs;
    }

    /// Adds the letters from `from` on that follow each other in their word too, one way or the other, as one
    /// run; returns where that ends.
    std::size_t add_stretch(const std::vector<Glyph>& glyphs, std::size_t from, const TextWord& word) {
        const auto follows = [&](std::size_t i, std::uint32_t step) {
            return i < glyphs.size() && glyphs[i].letter != blank && glyphs[i].word == glyphs[from].word &&
                   glyphs[i].position == glyphs[i - 1].position + step;
        };
        const bool turned = !follows(from + 1, 1) && follows(from + 1, ~std::uint32_t{0});
        const std::uint32_t step = turned ? ~std::uint32_t{0} : 1;
        const auto edge = [&](std::size_t i, bool far) {
            return word.getEdge(static_cast<int>(glyphs[i].position) + (far ? 1 : 0));
        };
        begin_run(word, edge(from, turned));
        std::size_t i = from;
        do {
            add_letter(glyphs[i].letter, edge(i, !turned));
            ++i;
        } while (follows(i, step));
        return i;
    }

    void begin_run(const TextWord& word, double edge) {
        double left = 0;
        double top = 0;
        double right = 0;
        double bottom = 0;
        word.getBBox(&left, &top, &right, &bottom);
        Run run;
        run.first = static_cast<std::uint32_t>(page_.letters.size());
        run.is_vertical = word.getRotation() % 2 == 1;
        run.low = static_cast<float>(run.is_vertical ? left : top);
        run.high = static_cast<float>(run.is_vertical ? right : bottom);
        page_.runs.push_back(run);
        page_.edges.push_back(static_cast<float>(edge));
    }

    void add_letter(char32_t letter, double edge) {
        page_.letters.push_back(letter);
        page_.edges.push_back(static_cast<float>(edge));
        ++page_.runs.back().length;
    }

    PageText& page_;
    const Directions& directions_;
};

/// The inverse of a matrix; a sheet without extent has none, and its text no place.
std::array<double, 6> inverse(const std::array<double, 6>& m) {
    const double determinant = m[0] * m[3] - m[1] * m[2];
    if (determinant == 0 || !std::isfinite(determinant)) return {};
    return {m[3] / determinant,
            -m[1] / determinant,
            -m[2] / determinant,
            m[0] / determinant,
            (m[2] * m[5] - m[3] * m[4]) / determinant,
            (m[1] * m[4] - m[0] * m[5]) / determinant};
}

PageText written(const std::vector<Line>& lines, const std::array<double, 6>& from_page) {
    PageText page;
    Directions directions;
    std::size_t letters = 0;
    std::size_t words = 0;
    bool may_go_to_the_left = false;
    for (const Line& line : lines)
        for (const PlacedWord& placed : line.words) {
            may_go_to_the_left = may_go_to_the_left || may_be_to_the_left(*placed.word);
            letters += static_cast<std::size_t>(placed.word->getLength());
            ++words;
        }
    if (may_go_to_the_left)
        for (const Line& line : lines)
            for (const PlacedWord& placed : line.words)
                directions.count(*placed.word);
    page.letters.reserve(letters);
    page.edges.reserve(letters + words);
    page.runs.reserve(words);
    page.to_page = inverse(from_page);
    Writer writer(page, directions);
    for (const Line& line : lines)
        writer.add(line);
    return page;
}

Line line_of(const TextBlock& block, const TextLine& line) {
    Line found;
    for (const TextWord* word = line.getWords(); word != nullptr; word = word->nextWord())
        if (word->getLength() > 0) found.words.push_back({word, word->hasSpaceAfter()});
    // The last line of a text column ends with a hyphen that belongs there.
    const bool goes_on = line.getNext() != nullptr || block.getNext() != nullptr;
    if (line.isHyphenated() && goes_on) found.end = Gap::broken_word;
    return found;
}

/// How far behind the end of `word` the next one begins, in sizes of its letters; a large number for one that
/// does not stand on the same line.
double distance(const TextWord& word, const TextWord& next) {
    constexpr double elsewhere = 1e6;
    const double size = std::max(word.getFontSize(), 1e-3);
    if (word.getRotation() != next.getRotation() ||
        std::fabs(word.getBaseline() - next.getBaseline()) > size / 2)
        return elsewhere;
    return std::fabs(next.getEdge(0) - word.getEdge(word.getLength())) / size;
}

constexpr double narrowest_blank = 0.1;
constexpr double widest_blank = 0.7;

}  // namespace

PageText arranged_text(const TextFlow* flows, const std::array<double, 6>& from_page) {
    std::vector<Line> lines;
    for (const TextFlow* flow = flows; flow != nullptr; flow = flow->getNext())
        for (const TextBlock* block = flow->getBlocks(); block != nullptr; block = block->getNext())
            for (const TextLine* line = block->getLines(); line != nullptr; line = line->getNext())
                lines.push_back(line_of(*block, *line));
    return written(lines, from_page);
}

PageText text_in_written_order(TextWordList& words, const std::array<double, 6>& from_page) {
    std::vector<Line> lines;
    for (int i = 0; i < words.getLength(); ++i) {
        const TextWord* word = words.get(i);
        if (word->getLength() == 0) continue;
        if (!lines.empty()) {
            PlacedWord& last = lines.back().words.back();
            const double gap = distance(*last.word, *word);
            last.blank_behind = gap > narrowest_blank && gap < widest_blank;
            if (gap >= widest_blank) lines.emplace_back();
        } else {
            lines.emplace_back();
        }
        lines.back().words.push_back({word, false});
    }
    return written(lines, from_page);
}

std::size_t piece_count(TextWordList& words) {
    const TextWord* last = nullptr;
    std::size_t pieces = 0;
    for (int i = 0; i < words.getLength(); ++i) {
        const TextWord* word = words.get(i);
        if (word->getLength() == 0) continue;
        if (last == nullptr || distance(*last, *word) >= widest_blank) ++pieces;
        last = word;
    }
    return pieces;
}

}  // namespace foliant::hosts::acrobat::text
