#include "hosts/acrobat/text/finder.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "hosts/acrobat/text/words.h"

namespace foliant::hosts::acrobat::text {
namespace {

constexpr std::size_t most_letters_around = 120;
constexpr std::string_view dots = "…";

/// The lines that the match stands in as one line of text, cut to what is near it.
std::string context_of(const PageText& page, const Match& match) {
    const auto [first, unused] = page.line_of(page.run_of(match.first));
    const std::size_t end = page.line_of(page.run_of(match.end - 1)).second;
    std::u32string before;
    std::u32string inside;
    std::u32string after;
    for (std::size_t run = first; run < end; ++run) {
        const auto& [start, length, low, high, is_vertical, gap] = page.runs[run];
        const auto part_at = [&](std::size_t letter) -> std::u32string& {
            return letter < match.first ? before : letter < match.end ? inside : after;
        };
        for (std::size_t i = start; i < start + length; ++i)
            part_at(i).push_back(page.letters[i]);
        if (gap != Gap::none && run + 1 < end) part_at(start + length - 1).push_back(U' ');
    }
    std::string text;
    if (before.size() > most_letters_around) {
        before.erase(0, before.size() - most_letters_around);
        text = dots;
    }
    const bool is_cut = after.size() > most_letters_around;
    if (is_cut) after.resize(most_letters_around);
    text += utf8(before + inside + after);
    if (is_cut) text += dots;
    return text;
}

/// The first character of the folded text that comes from that letter or one behind it.
std::size_t place_of(const Folded& page, std::size_t letter) {
    const auto found = std::lower_bound(page.origin.begin(), page.origin.end(), letter);
    return static_cast<std::size_t>(found - page.origin.begin());
}

}  // namespace

std::optional<Hit> Finder::find(const Query& query, Position from,
                                const std::function<void(int page)>& on_page) {
    const Case letter_case = query.case_sensitive ? Case::kept : Case::ignored;
    const std::u32string sought = fold(query.text, letter_case);
    if (sought.find_first_not_of(U' ') == std::u32string::npos) return std::nullopt;

    for (; from.page < reader_.page_count(); from = {from.page + 1, 0}) {
        if (on_page) on_page(from.page);
        const Page page = this->page(from.page, letter_case);
        const std::size_t start = from.letter == 0 ? 0 : place_of(*page.folded, from.letter);
        const auto part = text::find(*page.folded, sought, start, query.whole_words);
        if (!part) continue;
        const Match match = letters_of(*page.folded, *part);
        return Hit{from.page,
                   page.text->places(match.first, match.end),
                   context_of(*page.text, match),
                   {from.page, match.end}};
    }
    return std::nullopt;
}

Finder::Page Finder::page(int number, Case letter_case) {
    if (letter_case != kept_case_) forget_pages();
    kept_case_ = letter_case;
    const auto index = static_cast<std::size_t>(number);
    if (index < kept_.size() && kept_[index].text) return kept_[index];
    Page page;
    page.text = reader_.page(number);
    page.folded = std::make_shared<const Folded>(fold(*page.text, letter_case));
    keep(number, page);
    return page;
}

void Finder::keep(int number, const Page& page) {
    const std::size_t bytes = page.text->size_in_memory() + page.folded->text.capacity() * sizeof(char32_t) +
                              page.folded->origin.capacity() * sizeof(std::uint32_t);
    if (kept_bytes_ + bytes > most_bytes_) return;
    const auto index = static_cast<std::size_t>(number);
    if (index >= kept_.size()) kept_.resize(index + 1);
    kept_bytes_ += bytes;
    kept_[index] = page;
}

void Finder::forget_pages() noexcept {
    kept_.clear();
    kept_bytes_ = 0;
}

}  // namespace foliant::hosts::acrobat::text
