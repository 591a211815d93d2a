#include "hosts/acrobat/splice/object_order.h"

#include <algorithm>
#include <array>

#include "hosts/acrobat/glance/syntax.h"

namespace foliant::hosts::acrobat::splice {

using glance::Cursor;
using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;
using Numbers = std::vector<std::int32_t>;

namespace {

constexpr std::size_t most_visits = 16'000'000;  // of objects, all pages together

/// Entries of the catalogue that a reader looks at before it shows a page.
constexpr std::array<std::string_view, 5> opening_keys{"/ViewerPreferences", "/PageMode", "/Threads",
                                                       "/OpenAction", "/AcroForm"};

/// Who takes an object.
struct Takers {
    bool opening = false;
    bool outlines = false;
    bool first_page = false;
    bool others = false;
    std::int32_t other_pages = 0;
};

enum class Class { opening, outlines, first_page, other_page, shared, rest };

Class class_of(const Takers& takers) {
    if (takers.outlines) return Class::outlines;
    if (takers.opening) return Class::opening;
    if (takers.first_page) return Class::first_page;
    if (takers.other_pages > 1) return Class::shared;
    return takers.other_pages == 1 && !takers.others ? Class::other_page : Class::rest;
}

Value value_of(std::string_view text) {
    Cursor cursor(text);
    cursor.integer();
    cursor.integer();
    cursor.expect("obj");
    return cursor.value();
}

/// Finds out who takes what.
class Search {
  public:
    Search(const Whole& whole, const std::vector<std::vector<Mention>>& mentions)
        : whole_(whole),
          mentions_(mentions),
          is_page_(whole.objects.size()),
          seen_by_(whole.objects.size()),
          takers_(whole.objects.size()) {
        for (std::size_t i = 0; i < whole.objects.size(); ++i) {
            const std::string_view text = whole.objects[i].text;
            is_page_[i] = text.find("/Page") != std::string_view::npos &&
                          entry(value_of(text), "/Type").text == "/Page";
        }
        ask_pages();
        ask_catalogue();
        Numbers named;
        for (const Mention& mention : mentions_in(whole.trailer))
            if (mention.number != whole.catalogue) named.push_back(mention.number);
        for (const std::int32_t number : all_from(named))
            takers_[index(number)].others = true;
    }

    const Takers& takers(std::int32_t number) const { return takers_[index(number)]; }
    /// All that each page takes, itself first.
    const std::vector<Numbers>& taken() const noexcept { return taken_; }

  private:
    static std::size_t index(std::int32_t number) { return static_cast<std::size_t>(number); }

    void ask_pages() {
        for (const std::int32_t page : whole_.pages) {
            // The page's own thumbnail is nothing that the page takes, and what it hangs from is nobody's.
            Numbers beginning;
            Numbers thumbnail;
            each_entry(page, [&](std::string_view key, const Numbers& named) {
                if (key != "/Parent") {
                    Numbers& target = key == "/Thumb" ? thumbnail : beginning;
                    target.insert(target.end(), named.begin(), named.end());
                }
            });
            const Numbers of_thumbnail = all_from(thumbnail);
            for (const std::int32_t number : of_thumbnail)
                takers_[index(number)].others = true;
            Numbers all = all_from(beginning);
            // Whose it is what both take, writers and checkers do not agree on.
            require(std::none_of(of_thumbnail.begin(), of_thumbnail.end(),
                                 [&](std::int32_t number) { return seen_by_[index(number)] == asker_; }));
            all.insert(all.begin(), page);
            for (const std::int32_t number : all) {
                Takers& takers = takers_[index(number)];
                page == whole_.pages.front() ? takers.first_page = true : takers.other_pages += 1;
            }
            taken_.push_back(std::move(all));
        }
    }

    void ask_catalogue() {
        each_entry(whole_.catalogue, [&](std::string_view key, const Numbers& named) {
            const bool is_opening =
                std::find(opening_keys.begin(), opening_keys.end(), key) != opening_keys.end();
            for (const std::int32_t number : all_from(named)) {
                Takers& takers = takers_[index(number)];
                (is_opening ? takers.opening : key == "/Outlines" ? takers.outlines : takers.others) = true;
            }
        });
    }

    /// Has `use` see each entry of a dictionary: its key, and what its value mentions.
    template <typename Use>
    void each_entry(std::int32_t number, Use use) const {
        const std::string_view text = whole_.objects[index(number)].text;
        glance::Entries entries(value_of(text));
        std::string_view key;
        for (Value value; entries.next(key, value);) {
            const auto begin = static_cast<std::size_t>(value.text.data() - text.data());
            Numbers named;
            for (const Mention& mention : mentions_[index(number)])
                if (mention.at >= begin && mention.at < begin + value.text.size())
                    named.push_back(mention.number);
            use(key, named);
        }
    }

    /// All objects that can be reached from these, and these, but pages, which are nobody's part.
    Numbers all_from(const Numbers& beginning) {
        ++asker_;
        Numbers all;
        const auto see = [&](std::int32_t number) {
            if (is_page_[index(number)] || is_nothing(whole_, number) || seen_by_[index(number)] == asker_)
                return;
            seen_by_[index(number)] = asker_;
            all.push_back(number);
            require(++visits_ <= most_visits);
        };
        for (const std::int32_t number : beginning)
            see(number);
        for (std::size_t next = 0; next < all.size(); ++next)
            for (const Mention& mention : mentions_[index(all[next])])
                see(mention.number);
        return all;
    }

    const Whole& whole_;
    const std::vector<std::vector<Mention>>& mentions_;
    std::vector<bool> is_page_;
    std::vector<std::size_t> seen_by_;
    std::size_t asker_ = 0;
    std::size_t visits_ = 0;
    std::vector<Takers> takers_;
    std::vector<Numbers> taken_;
};

bool shows_outlines(const Whole& whole) {
    const Value mode =
        entry(value_of(whole.objects[static_cast<std::size_t>(whole.catalogue)].text), "/PageMode");
    require(mode.kind != Kind::reference);
    return mode.text == "/UseOutlines";
}

}  // namespace

std::vector<Mention> mentions_in(std::string_view text) {
    std::vector<Mention> mentions;
    Cursor cursor(text);
    for (cursor.skip_space(); !cursor.rest().empty(); cursor.skip_space()) {
        const std::size_t at = cursor.position();
        if (cursor.skip("<<") || cursor.skip(">>") || cursor.skip("[") || cursor.skip("]")) continue;
        const Value value = cursor.value();
        if (value.kind == Kind::reference)
            mentions.push_back({at, cursor.position() - at, static_cast<std::int32_t>(value.number)});
    }
    return mentions;
}

std::vector<Mention> mentions_in_object(std::string_view text) {
    const Value value = value_of(text);
    std::vector<Mention> mentions = mentions_in(value.text);
    for (Mention& mention : mentions)
        mention.at += static_cast<std::size_t>(value.text.data() - text.data());
    return mentions;
}

ObjectOrder::ObjectOrder(const Whole& whole, const std::vector<std::vector<Mention>>& mentions) {
    const Search search(whole, mentions);
    const auto is = [&](std::int32_t number, Class expected) {
        return number != whole.catalogue && class_of(search.takers(number)) == expected;
    };
    opening.push_back(whole.catalogue);
    if (whole.outlines != 0) outlines.push_back(whole.outlines);
    Numbers others;
    for (std::size_t i = 1; i < whole.objects.size(); ++i) {
        const auto number = static_cast<std::int32_t>(i);
        if (whole.objects[i].text.empty()) continue;
        if (is(number, Class::opening)) opening.push_back(number);
        if (is(number, Class::shared)) shared.push_back(number);
        if (is(number, Class::outlines) && number != whole.outlines) outlines.push_back(number);
        if (is(number, Class::rest)) others.push_back(number);
    }
    for (std::size_t page = 0; page < search.taken().size(); ++page) {
        Numbers own;
        Numbers taken;
        for (const std::int32_t number : search.taken()[page]) {
            if (is(number, page == 0 ? Class::first_page : Class::other_page))
                own.push_back(number);
            else if (is(number, Class::first_page) || is(number, Class::shared))
                taken.push_back(number);
        }
        if (page == 0) {
            first_page = std::move(own);
        } else {
            pages.push_back(std::move(own));
            taken_by_page.push_back(std::move(taken));
        }
    }
    Numbers& with_outlines = shows_outlines(whole) ? first_page : rest;
    with_outlines.insert(with_outlines.end(), outlines.begin(), outlines.end());
    rest.insert(rest.end(), others.begin(), others.end());
}

}  // namespace foliant::hosts::acrobat::splice
