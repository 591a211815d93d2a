#include "hosts/office/print/page_range.h"

#include <charconv>
#include <optional>

namespace foliant::hosts::office {

namespace {

std::string without_blanks(std::string_view text) {
    std::string result;
    for (const char character : text)
        if (character != ' ' && character != '\t') result += character;
    return result;
}

/// A page number of any size: nothing but digits, capped where counting further makes no difference.
std::optional<int> page_number(std::string_view digits) {
    int number = 0;
    const auto [end, status] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (digits.empty() || digits.front() == '-' || end != digits.data() + digits.size()) return {};
    return status == std::errc::result_out_of_range ? INT32_MAX : number;
}

/// One item of the list; nothing when it is not understood. An open end is the first or the last page.
std::optional<PageRun> page_run(std::string_view item, int page_count) {
    const std::size_t dash = item.find('-');
    if (dash == std::string_view::npos) {
        const auto page = page_number(item);
        if (!page) return {};
        return PageRun{*page, *page};
    }
    const std::string_view first = item.substr(0, dash);
    const std::string_view last = item.substr(dash + 1);
    if (first.empty() && last.empty()) return {};
    const auto from = first.empty() ? 1 : page_number(first);
    const auto to = last.empty() ? page_count : page_number(last);
    if (!from || !to) return {};
    return PageRun{*from, *to};
}

std::string pages(int count) {
    return std::to_string(count) + (count == 1 ? " page" : " pages");
}

}  // namespace

std::vector<PageRun> parse_page_range(std::string_view expression, int page_count, std::string_view document,
                                      const Application& application) {
    const std::string list = without_blanks(expression);
    std::vector<PageRun> runs;
    for (std::size_t start = 0; start < list.size();) {
        std::size_t end = list.find_first_of(",;", start);
        if (end == std::string::npos) end = list.size();
        const std::string item = list.substr(start, end - start);
        const auto run = page_run(item, page_count);
        if (!run)
            throw application.error(application.value_out_of_range,
                                    "The page range \"" + std::string(expression) + "\" for " +
                                        std::string(document) + " is not understood at \"" + item +
                                        "\". Give pages and runs of pages, such as 1-3,5 or -3 or 4-.");
        for (const int page : {run->first, run->last})
            if (page < 1 || page > page_count)
                throw application.error(application.value_out_of_range,
                                        "The page range \"" + std::string(expression) + "\" names page " +
                                            (page == INT32_MAX ? item : std::to_string(page)) + ", but " +
                                            std::string(document) + " has " + pages(page_count) + ".");
        runs.push_back(*run);
        start = end + 1;
    }
    return runs;
}

std::string format_page_runs(const std::vector<PageRun>& runs) {
    std::string text;
    for (const PageRun& run : runs) {
        if (!text.empty()) text += ',';
        text += std::to_string(run.first) + '-' + std::to_string(run.last);
    }
    return text;
}

}  // namespace foliant::hosts::office
