#include "hosts/acrobat/web_links.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "automation/error.h"
#include "hosts/acrobat/acrobat_error.h"
#include "hosts/acrobat/outline/links.h"
#include "hosts/acrobat/owner_rights.h"
#include "hosts/acrobat/text/addresses.h"

namespace foliant::hosts::acrobat {
namespace {

/// Pages from 0; `end` is behind the last.
struct PageSpan {
    int first = 0;
    int end = 0;
};

enum DialogControl : std::size_t { all_pages, some_pages, from_page, to_page };

Dialog ask_for_pages(int page_count) {
    Dialog dialog;
    dialog.caption = "Create Web Links";
    dialog.controls = {
        {.window_class = "Button", .caption = "All", .checked = true, .is_check_box = true},
        {.window_class = "Button", .caption = "From", .is_check_box = true},
        {.window_class = "Edit", .caption = "From", .text = "1"},
        {.window_class = "Edit", .caption = "To", .text = std::to_string(page_count)},
        {.window_class = "Button", .caption = "OK", .is_default = true},
        {.window_class = "Button", .caption = "Cancel"},
    };
    return dialog;
}

int number_in(const std::string& text, int otherwise) {
    int number = otherwise;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

PageSpan chosen_pages(const Dialog& dialog, int page_count) {
    if (!dialog.controls[some_pages].checked) return {0, page_count};
    const int first = number_in(dialog.controls[from_page].text, 1);
    const int last = number_in(dialog.controls[to_page].text, page_count);
    return {std::clamp(first - 1, 0, page_count), std::clamp(last, 0, page_count)};
}

std::size_t link_addresses(Document& document, PageSpan span) {
    text::TextReader& pages = document.text().pages();
    return with_file_named(document, [&](structure::Pdf& pdf) {
        const int end = std::min(span.end, static_cast<int>(pdf.pages().size()));
        std::size_t count = 0;
        for (int page = span.first; page < end; ++page) {
            std::vector<outline::Link> links;
            for (text::Address& address : text::addresses(*pages.page(page)))
                links.push_back({std::move(address.uri), std::move(address.places)});
            count +=
                outline::add_links(pdf.qpdf(), pdf.pages()[static_cast<std::size_t>(page)].object, links);
        }
        return count;
    });
}

/// The notice has one button only, and nothing depends on it.
void notify(Machine& machine, std::size_t count) {
    const std::string told = count == 0   ? "No web links were created."
                             : count == 1 ? "1 web link was created."
                                          : std::to_string(count) + " web links were created.";
    Dialog notice;
    notice.caption = "Adobe Acrobat";
    notice.controls = {{.window_class = "Static", .text = told},
                       {.window_class = "Button", .caption = "OK", .is_default = true}};
    machine.show(notice);
}

}  // namespace

bool create_web_links(Program& program) {
    const ViewPtr view = program.active_view();
    if (!view || !view->document) return false;
    Document& document = *view->document;
    require_right(document, structure::Right::link, "may get no links");
    const int page_count = with_file_named(document, [](structure::Pdf& pdf) { return pdf.page_count(); });
    Dialog dialog = ask_for_pages(page_count);
    program.machine.show(dialog);
    if (!dialog.accepted) return false;
    const std::size_t count = link_addresses(document, chosen_pages(dialog, page_count));
    if (count > 0) document.note_addition();
    notify(program.machine, count);
    return true;
}

}  // namespace foliant::hosts::acrobat
