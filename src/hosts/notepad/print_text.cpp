#include "hosts/notepad/print_text.h"

#include <algorithm>

#include "hosts/pages/paper_context.h"

namespace foliant::hosts::notepad {

namespace {

using pages::LayoutPtr;
using pages::PageWriter;
using pages::Paper;
using pages::points;

/// Notepad's own; elsewhere what is as wide, and then whatever is of even width.
constexpr const char* font = "Lucida Console, DejaVu Sans Mono, monospace 10";
constexpr double side_margin = 54;  // points
constexpr double margin = 72;       // above and below
constexpr double blank_lines = 2;   // what head and foot take of the text, one of them to keep a distance

struct IteratorFree {
    void operator()(PangoLayoutIter* iterator) const { pango_layout_iter_free(iterator); }
};

class TextPrinter {
  public:
    TextPrinter(const std::string& name, const Paper& paper, PageWriter& writer)
        : paper_(paper),
          writer_(writer),
          text_(writer.make_layout(font)),
          head_(writer.make_layout(font)),
          foot_(writer.make_layout(font)) {
        const int width = static_cast<int>((paper.width - 2 * side_margin) * PANGO_SCALE);
        for (const LayoutPtr* layout : {&text_, &head_, &foot_})
            pango_layout_set_width(layout->get(), width);
        pango_layout_set_wrap(text_.get(), PANGO_WRAP_WORD_CHAR);
        add_no_hyphens();
        for (const LayoutPtr* layout : {&head_, &foot_}) {
            pango_layout_set_alignment(layout->get(), PANGO_ALIGN_CENTER);
            pango_layout_set_ellipsize(layout->get(), PANGO_ELLIPSIZE_MIDDLE);
        }
        pango_layout_set_text(head_.get(), name.data(), static_cast<int>(name.size()));
        measure();
    }

    void put_line(std::string_view line) {
        do
            line.remove_prefix(put_beginning(line));
        while (!line.empty());
    }

    /// A form feed at the very beginning feeds nothing.
    void feed_form() {
        if (page_is_over_) start_page();
        page_is_over_ = true;
    }

    void end() {
        if (writer_.page() == 0) start_page();
    }

  private:
    /// Where a word is broken, no letter is added to it.
    void add_no_hyphens() {
        PangoAttrList* attributes = pango_attr_list_new();
        pango_attr_list_insert(attributes, pango_attr_insert_hyphens_new(FALSE));
        pango_layout_set_attributes(text_.get(), attributes);
        pango_attr_list_unref(attributes);
    }

    /// Every line is as high as one of the usual font, whatever letters of others are in it.
    void measure() {
        pango_layout_set_text(text_.get(), "Mg", -1);
        int height = 0;
        pango_layout_get_size(text_.get(), nullptr, &height);
        line_height_ = points(height);
        ascent_ = points(pango_layout_get_baseline(text_.get()));
        const double room = paper_.height - 2 * margin - 2 * blank_lines * line_height_;
        lines_a_page_ = std::max(1, static_cast<int>(room / line_height_));
    }

    void start_page() {
        writer_.start_page();
        page_is_over_ = false;
        lines_on_page_ = 0;
        writer_.show(head_.get(), side_margin, margin);
        const std::string number = "Page " + std::to_string(writer_.page());
        pango_layout_set_text(foot_.get(), number.data(), static_cast<int>(number.size()));
        writer_.show(foot_.get(), side_margin, paper_.height - margin - line_height_);
    }

    /// Where the next line goes; on a new page when this one is full.
    double next_baseline() {
        if (writer_.page() == 0 || page_is_over_ || lines_on_page_ == lines_a_page_) start_page();
        return margin + (blank_lines + lines_on_page_++) * line_height_ + ascent_;
    }

    /// Prints what of a line can be laid out at once; its length. The last of its lines is left for the next time
    /// where more follows.
    std::size_t put_beginning(std::string_view line) {
        const std::string_view part = pages::beginning_of(line);
        pango_layout_set_text(text_.get(), part.data(), static_cast<int>(part.size()));
        const int lines = pango_layout_get_line_count(text_.get());
        const bool leaves_last = part.size() < line.size() && lines > 1;
        const std::unique_ptr<PangoLayoutIter, IteratorFree> place(pango_layout_get_iter(text_.get()));
        for (int i = leaves_last ? 1 : 0; i < lines; ++i, pango_layout_iter_next_line(place.get())) {
            PangoRectangle box;
            pango_layout_iter_get_line_extents(place.get(), nullptr, &box);
            writer_.show_line(pango_layout_iter_get_line_readonly(place.get()), side_margin + points(box.x),
                              next_baseline());
        }
        return leaves_last ? static_cast<std::size_t>(pango_layout_iter_get_index(place.get())) : part.size();
    }

    Paper paper_;
    PageWriter& writer_;
    LayoutPtr text_;
    LayoutPtr head_;
    LayoutPtr foot_;
    double line_height_ = 0;
    double ascent_ = 0;
    int lines_a_page_ = 0;
    int lines_on_page_ = 0;
    bool page_is_over_ = false;
};

}  // namespace

void print_text(std::string_view text, const std::string& name, const Paper& paper, PageWriter& writer,
                const std::function<void(int)>& on_progress) {
    constexpr std::size_t whole = 100;  // per cent
    TextPrinter printer(name, paper, writer);
    const std::size_t size = text.size();
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n\f"), text.size());
        const bool is_form_feed = end < text.size() && text[end] == '\f';
        if (end > 0 || !is_form_feed) printer.put_line(text.substr(0, end));
        if (is_form_feed) printer.feed_form();
        text.remove_prefix(end);
        text.remove_prefix(text.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, text.size()));
        if (on_progress) on_progress(static_cast<int>((size - text.size()) * whole / size));
    }
    printer.end();
}

}  // namespace foliant::hosts::notepad
