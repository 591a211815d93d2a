#include "hosts/access/report/report_pages.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <string_view>
#include <vector>

#include "hosts/access/report/ruler.h"
#include "hosts/access/report/table_plan.h"
#include "hosts/access/sql/dates.h"

namespace foliant::hosts::access {
namespace {

using pages::LayoutPtr;
using pages::PageWriter;
using pages::Paper;

// In points.
constexpr double margin = 48;
constexpr double gap = 10;  // between columns
constexpr double below_title = 10;
constexpr double footer_space = 24;
constexpr double title_size = 16;
constexpr double footer_size = 8;
constexpr double line_pitch = 1.3;  // of the font's size
constexpr double padding = 3;       // above and below the lines of a record, together

bool is_right(Kind kind) {
    return kind == Kind::integer || kind == Kind::single || kind == Kind::real || kind == Kind::money ||
           kind == Kind::decimal || kind == Kind::date;
}

class ReportPages {
  public:
    ReportPages(const Report& report, const LocaleForms& forms, const Paper& paper,
                const PageWriter::Sink& sink, const std::function<void(int)>& progress)
        : report_(report), forms_(forms), upright_(paper), progress_(progress), sink_(sink) {}

    void write() {
        show_fields();
        choose_plan();
        open_writer();
        break_lines();
        pages_ = divide(lines_, room(0), room(1), {.line = pitch_, .padding = padding});
        draw();
        writer_->finish();
    }

  private:
    const std::vector<Column>& columns() const { return report_.records.columns; }
    std::size_t across() const { return plan_.pages_across.size() - 1; }

    static const std::string& heading(const Column& column) {
        return column.caption.empty() ? column.name : column.caption;
    }

    /// One field as it is shown, without characters that would move others about.
    std::string field(std::size_t record, std::size_t column) const {
        std::string text = shown(report_.records.rows[record][column], columns()[column], forms_);
        std::erase(text, '\r');
        while (text.ends_with('\n'))
            text.pop_back();
        return text;
    }

    /// What the columns need, from all records.
    void show_fields() {
        const PageWriter nowhere(upright_, {}, [](std::string_view) {});
        Ruler plain(nowhere, false);
        Ruler bold(nowhere, true);
        for (const Column& column : columns()) {
            needs_.push_back(bold.need(heading(column)));
            // A heading may be broken; a word of it hardly.
            needs_.back().natural = std::max(needs_.back().least, std::min(needs_.back().natural, 12.0));
        }
        widths_.resize(report_.records.rows.size() * columns().size());
        for (std::size_t record = 0; record < report_.records.rows.size(); ++record) {
            for (std::size_t column = 0; column < columns().size(); ++column) {
                const std::string text = field(record, column);
                ColumnNeed need = plain.need(text);
                const bool has_lines = text.find('\n') != std::string::npos;
                widths_[record * columns().size() + column] =
                    has_lines ? -1.0F : static_cast<float>(need.natural);
                need.least = breakable(columns()[column].kind) ? std::min(need.least, 11.0) : need.natural;
                needs_[column].natural = std::max(needs_[column].natural, need.natural);
                needs_[column].least = std::max(needs_[column].least, need.least);
            }
            tell(record, 0, 40);
        }
        for (ColumnNeed& need : needs_) {
            need.natural += 0.3;  // a rounding error is no reason to break a line
            need.least = std::min(need.least + 0.3, need.natural);
        }
    }

    static bool breakable(Kind kind) {
        return kind == Kind::text || kind == Kind::memo || kind == Kind::computed;
    }

    void choose_plan() {
        plan_ = plan_table(needs_, upright_.width - 2 * margin, upright_.height - 2 * margin, gap);
        paper_ = plan_.is_landscape ? Paper{upright_.height, upright_.width} : upright_;
        pitch_ = plan_.font_size * line_pitch;
    }

    void open_writer() {
        writer_ = std::make_unique<PageWriter>(
            paper_, pages::About{.title = report_.title, .creator = "Access"}, sink_);
        for (LayoutPtr* layout : {&plain_, &headings_, &title_, &footer_})
            *layout = writer_->make_layout(layout == &title_ ? report_font(title_size, true).c_str()
                                           : layout == &footer_
                                               ? report_font(footer_size, false).c_str()
                                               : report_font(plan_.font_size, layout == &headings_).c_str());
        pango_layout_set_text(title_.get(), report_.title.data(), static_cast<int>(report_.title.size()));
        pango_layout_set_width(title_.get(), static_cast<int>((paper_.width - 2 * margin) * PANGO_SCALE));
        pango_layout_set_wrap(title_.get(), PANGO_WRAP_WORD_CHAR);
        int height = 0;
        pango_layout_get_size(title_.get(), nullptr, &height);
        title_space_ = static_cast<double>(height) / PANGO_SCALE + below_title;
        for (std::size_t i = 0; i < columns().size(); ++i)
            heading_lines_ = std::max(heading_lines_, lines_of(headings_, heading(columns()[i]), i, false));
    }

    bool is_one_line(std::size_t record, std::size_t column) const {
        const float width = widths_[record * columns().size() + column];
        return width >= 0 && width * plan_.font_size <= plan_.widths[column];
    }

    /// Sets a field, broken to its column's width unless it is known to be one line.
    void set(const LayoutPtr& layout, const std::string& text, std::size_t column, bool is_one_line) const {
        pango_layout_set_width(
            layout.get(), is_one_line ? -1 : static_cast<int>(std::ceil(plan_.widths[column] * PANGO_SCALE)));
        pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
        pango_layout_set_single_paragraph_mode(layout.get(), is_one_line ? TRUE : FALSE);
        pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
    }

    std::size_t lines_of(const LayoutPtr& layout, const std::string& text, std::size_t column,
                         bool is_one_line) const {
        set(layout, text, column, is_one_line);
        return static_cast<std::size_t>(pango_layout_get_line_count(layout.get()));
    }

    void break_lines() {
        lines_.assign(report_.records.rows.size(), 1);
        for (std::size_t record = 0; record < lines_.size(); ++record) {
            for (std::size_t column = 0; column < columns().size(); ++column)
                if (!is_one_line(record, column))
                    lines_[record] =
                        std::max(lines_[record], lines_of(plain_, field(record, column), column, false));
            tell(record, 40, 60);
        }
    }

    double heading_height() const { return static_cast<double>(heading_lines_) * pitch_ + padding + 4; }

    double room(std::size_t page) const {
        const double top = page == 0 ? title_space_ : 0;
        return std::max(paper_.height - 2 * margin - top - footer_space - heading_height(), pitch_ + padding);
    }

    void draw() {
        for (std::size_t page = 0; page < pages_.size(); ++page)
            for (std::size_t band = 0; band < across(); ++band)
                draw_page(page, band);
    }

    void draw_page(std::size_t page, std::size_t band) {
        writer_->start_page();
        double top = margin;
        if (page == 0) {
            if (band == 0) draw_title(top);
            top += title_space_;
        }
        draw_headings(band, top);
        top += heading_height();
        for (const Slice& slice : pages_[page]) {
            draw_slice(slice, band, top);
            top += static_cast<double>(slice.count) * pitch_ + padding;
            if (slice.first + slice.count == lines_[slice.record]) draw_rule(band, top, 0.25, 0.75);
            tell(slice.record, 60, 100);
        }
        if (report_.records.rows.empty()) draw_text("There are no records.", margin, top + padding);
        draw_footer(page, band);
    }

    double width_of(std::size_t band) const {
        double width = -gap;
        for (std::size_t i = plan_.pages_across[band]; i < plan_.pages_across[band + 1]; ++i)
            width += plan_.widths[i] + gap;
        return width;
    }

    void draw_rule(std::size_t band, double y, double thickness, double grey) {
        cairo_t* const canvas = writer_->canvas();
        cairo_set_source_rgb(canvas, grey, grey, grey);
        cairo_set_line_width(canvas, thickness);
        cairo_move_to(canvas, margin, y);
        cairo_line_to(canvas, margin + width_of(band), y);
        cairo_stroke(canvas);
        cairo_set_source_rgb(canvas, 0, 0, 0);
    }

    void draw_title(double top) { writer_->show(title_.get(), margin, top); }

    void draw_text(const std::string& text, double left, double top) {
        pango_layout_set_width(plain_.get(), -1);
        pango_layout_set_text(plain_.get(), text.data(), static_cast<int>(text.size()));
        writer_->show(plain_.get(), left, top);
    }

    void draw_headings(std::size_t band, double top) {
        double left = margin;
        for (std::size_t i = plan_.pages_across[band]; i < plan_.pages_across[band + 1]; ++i) {
            set(headings_, heading(columns()[i]), i, false);
            const auto lines = static_cast<std::size_t>(pango_layout_get_line_count(headings_.get()));
            // The last lines of all headings are on one level.
            draw_lines(headings_, i, {0, 0, lines}, left,
                       top + static_cast<double>(heading_lines_ - lines) * pitch_);
            left += plan_.widths[i] + gap;
        }
        draw_rule(band, top + heading_height() - 3, 1, 0.2);
    }

    void draw_slice(const Slice& slice, std::size_t band, double top) {
        double left = margin;
        for (std::size_t i = plan_.pages_across[band]; i < plan_.pages_across[band + 1]; ++i) {
            const std::string text = field(slice.record, i);
            if (!text.empty()) {
                set(plain_, text, i, is_one_line(slice.record, i));
                draw_lines(plain_, i, slice, left, top + padding / 2);
            }
            left += plan_.widths[i] + gap;
        }
    }

    /// Draws those lines of a text that has been set, the first of them at the top.
    void draw_lines(const LayoutPtr& layout, std::size_t column, const Slice& slice, double left,
                    double top) {
        const double ascent = plan_.font_size;  // the first line's letters hang from the top
        const auto lines = static_cast<std::size_t>(pango_layout_get_line_count(layout.get()));
        for (std::size_t i = slice.first; i < std::min(lines, slice.first + slice.count); ++i) {
            PangoLayoutLine* const line = pango_layout_get_line_readonly(layout.get(), static_cast<int>(i));
            PangoRectangle extent{};
            pango_layout_line_get_extents(line, nullptr, &extent);
            const double free = plan_.widths[column] - static_cast<double>(extent.width) / PANGO_SCALE;
            const bool at_right = is_right(columns()[column].kind) ||
                                  pango_layout_line_get_resolved_direction(line) == PANGO_DIRECTION_RTL;
            writer_->show_line(line, left + (at_right ? free : 0),
                               top + ascent + static_cast<double>(i - slice.first) * pitch_);
        }
    }

    void draw_footer(std::size_t page, std::size_t band) {
        const double top = paper_.height - margin - footer_size * line_pitch;
        const std::string number = "Page " + std::to_string(page * across() + band + 1) + " of " +
                                   std::to_string(pages_.size() * across());
        draw_footer_text(today(), false, top);
        draw_footer_text(number, true, top);
    }

    void draw_footer_text(const std::string& text, bool at_right, double top) {
        pango_layout_set_text(footer_.get(), text.data(), static_cast<int>(text.size()));
        int width = 0;
        pango_layout_get_size(footer_.get(), &width, nullptr);
        writer_->show(footer_.get(),
                      at_right ? paper_.width - margin - static_cast<double>(width) / PANGO_SCALE : margin,
                      top);
    }

    std::string today() const {
        const std::time_t now = std::time(nullptr);
        std::tm parts{};
        ::localtime_r(&now, &parts);
        return shown(make_date(parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday), {}, forms_);
    }

    /// A message now and then, from `first` to `last` per cent.
    void tell(std::size_t record, int first, int last) {
        constexpr std::size_t often = 1000;
        if (record % often != 0) return;
        const auto share = static_cast<double>(record) / static_cast<double>(report_.records.rows.size());
        progress_(first + static_cast<int>((last - first) * share));
    }

    const Report& report_;
    const LocaleForms& forms_;
    Paper upright_;
    const std::function<void(int)>& progress_;
    PageWriter::Sink sink_;

    std::vector<ColumnNeed> needs_;
    std::vector<float> widths_;  ///< of each field at a font size of one point; -1 for several lines
    TablePlan plan_;
    Paper paper_{};
    double pitch_ = 0;
    double title_space_ = 0;
    std::unique_ptr<PageWriter> writer_;
    LayoutPtr plain_, headings_, title_, footer_;
    std::size_t heading_lines_ = 1;
    std::vector<std::size_t> lines_;  ///< of each record
    std::vector<Page> pages_;
};

}  // namespace

void write_report(const Report& report, const LocaleForms& forms, const Paper& paper,
                  const PageWriter::Sink& sink, const std::function<void(int)>& progress) {
    ReportPages(report, forms, paper, sink, progress).write();
}

}  // namespace foliant::hosts::access
