#include "hosts/acrobat/text/folding.h"

#include <algorithm>
#include <array>
#include <glib.h>
#include <memory>
#include <tuple>
#include <utility>

#include "hosts/acrobat/text/letters.h"

namespace foliant::hosts::acrobat::text {
namespace {

constexpr char32_t blank = U' ';

bool is_invisible(char32_t letter) {
    return letter == 0x00AD || (letter >= 0x200B && letter <= 0x200F) ||
           (letter >= 0x202A && letter <= 0x202E) || (letter >= 0x2060 && letter <= 0x2064) ||
           letter == 0xFEFF || letter == 0x0640 || (letter >= 0xFE00 && letter <= 0xFE0F);
}

/// Signs that are typed as one and printed as others.
char32_t as_typed(char32_t letter) {
    switch (letter) {
        case 0x2010:
        case 0x2011:
        case 0x2212:
            return U'-';
        case 0x2018:
        case 0x2019:
            return U'\'';
        case 0x201C:
        case 0x201D:
            return U'"';
        case 0x03C2:  // the sigma at the end of a word
            return 0x03C3;
        default:
            return letter;
    }
}

char32_t made_small(char32_t letter) {
    return letter == 0x03C2 ? 0x03C3 : g_unichar_tolower(letter);
}

/// Writes folded text letter by letter.
class Folder {
  public:
    Folder(Folded& result, Case letter_case) : result_(result), ignore_case_(letter_case == Case::ignored) {}

    void add(char32_t letter, std::uint32_t origin) {
        if (letter < 0x80) {
            if (letter <= blank) return add_blank(origin);
            const bool is_capital = ignore_case_ && letter >= U'A' && letter <= U'Z';
            return put(is_capital ? letter + (U'a' - U'A') : letter, origin);
        }
        if (is_invisible(letter)) return;
        const char32_t typed = as_typed(letter);
        if (g_unichar_isspace(typed) != 0) return add_blank(origin);
        add_parts(typed, origin);
    }

    void add_blank(std::uint32_t origin) {
        const bool follows_blank = !result_.text.empty() && result_.text.back() == blank;
        if (!follows_blank) put(blank, origin);
    }

    void put(char32_t letter, std::uint32_t origin) {
        result_.text.push_back(letter);
        result_.origin.push_back(origin);
    }

    /// Marks on one letter come in an order of their own, whoever wrote them.
    void order_marks() {
        for (std::size_t i = 0; i < result_.text.size(); ++i) {
            std::size_t end = i;
            while (end < result_.text.size() && weight(result_.text[end]) > 0)
                ++end;
            if (end > i + 1) order_marks(i, end);
            i = std::max(i, end);
        }
    }

  private:
    static int weight(char32_t letter) { return letter < 0x0300 ? 0 : g_unichar_combining_class(letter); }

    void order_marks(std::size_t first, std::size_t end) {
        std::vector<std::pair<char32_t, std::uint32_t>> marks;
        for (std::size_t i = first; i < end; ++i)
            marks.emplace_back(result_.text[i], result_.origin[i]);
        std::stable_sort(marks.begin(), marks.end(), [](const auto& one, const auto& other) {
            return weight(one.first) < weight(other.first);
        });
        for (std::size_t i = first; i < end; ++i)
            std::tie(result_.text[i], result_.origin[i]) = marks[i - first];
    }

    void add_parts(char32_t letter, std::uint32_t origin) {
        std::array<gunichar, G_UNICHAR_MAX_DECOMPOSITION_LENGTH> parts{};
        std::size_t count = g_unichar_fully_decompose(letter, TRUE, parts.data(), parts.size());
        if (parts[0] == blank && count > 1) count = 0;  // an accent that stands alone
        if (count == 0) {
            parts[0] = letter;
            count = 1;
        }
        for (std::size_t i = 0; i < std::min(count, parts.size()); ++i) {
            const char32_t part = as_typed(parts.at(i));
            put(ignore_case_ ? made_small(part) : part, origin);
        }
    }

    Folded& result_;
    bool ignore_case_;
};

bool is_hyphen(char32_t letter) {
    return letter == U'-' || letter == 0x2010 || letter == 0x00AD;
}

}  // namespace

Folded fold(const PageText& page, Case letter_case) {
    Folded result;
    result.text.reserve(page.letters.size() + page.runs.size() + 2);
    result.origin.reserve(page.letters.size() + page.runs.size() + 2);
    Folder folder(result, letter_case);
    folder.add_blank(0);
    for (const Run& run : page.runs) {
        const std::uint32_t end = run.first + run.length;
        for (std::uint32_t i = run.first; i + 1 < end; ++i)
            folder.add(page.letters[i], i);
        if (run.length == 0) continue;
        const std::uint32_t last = end - 1;
        const char32_t letter = page.letters[last];
        if (ends_line(run.gap) && is_hyphen(letter)) {
            folder.put(optional_hyphen, last);
            folder.put(optional_blank, last);
            continue;
        }
        folder.add(letter, last);
        if (ends_line(run.gap) && stands_without_blanks(letter))
            folder.put(optional_blank, last);
        else if (run.gap != Gap::none)
            folder.add_blank(last);
    }
    folder.add_blank(page.letters.empty() ? 0 : static_cast<std::uint32_t>(page.letters.size() - 1));
    folder.order_marks();
    return result;
}

std::u32string fold(std::string_view text, Case letter_case) {
    const std::unique_ptr<gchar, decltype(&g_free)> valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), g_free);
    Folded result;
    Folder folder(result, letter_case);
    for (const gchar* letter = valid.get(); *letter != '\0'; letter = g_utf8_next_char(letter))
        folder.add(g_utf8_get_char(letter), 0);
    folder.order_marks();
    return result.text;
}

}  // namespace foliant::hosts::acrobat::text
