#include "hosts/office/word/plain_document.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "hosts/office/engine/system_paper.h"
#include "hosts/office/print/output.h"
#include "hosts/office/print/page_range.h"
#include "hosts/office/print/pdf_to_postscript.h"
#include "hosts/office/word/word_error.h"
#include "hosts/pages/page_writer.h"
#include "hosts/pages/pdf_language.h"
#include "hosts/pages/postscript_pages.h"
#include "hosts/pages/text.h"
#include "hosts/pages/text_pages.h"
#include "hosts/text_encoding.h"

namespace foliant::hosts::office {

namespace {

constexpr double hundredths_of_mm_in_point = 2540.0 / 72;
constexpr std::string_view language = "en-US";  // what LibreOffice takes a text for that does not say
constexpr const char* creator = "Writer";

double in_points(double hundredths_of_mm) {
    return hundredths_of_mm / hundredths_of_mm_in_point;
}

PlainPage usual_page() {
    return system_paper() == Paper::letter ? PlainPage(21590, 27940) : PlainPage(21001, 29700);
}

/// Lines end in line feeds, or in carriage returns where there are only those.
std::string with_line_feeds(std::string text) {
    if (text.find('\n') == std::string::npos)
        std::ranges::replace(text, '\r', '\n');
    else
        std::erase(text, '\r');
    return text;
}

/// Where a name says nothing to this machine, the letters are of even width all the same.
pages::Lettering lettering_of(const TextFont& font) {
    return {font.name() + ",monospace", font.points(), font.is_bold(), font.is_italic()};
}

pages::TextPages::Look look_of(const TextFont& font) {
    return {font.is_underlined(), font.color() < 0 ? 0U : static_cast<std::uint32_t>(font.color())};
}

/// Tells how far it is a few times a second.
class Progress {
  public:
    explicit Progress(Machine& machine) : machine_(machine) {}

    void operator()(double share) {
        constexpr std::chrono::milliseconds pause{200};
        constexpr double whole = 100;  // per cent
        const auto now = std::chrono::steady_clock::now();
        if (now - last_ < pause) return;
        last_ = now;
        machine_.show_progress("Printing", static_cast<int>(share * whole));
    }

  private:
    Machine& machine_;
    std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

}  // namespace

/// The pages of the document as it is now.
class PlainDocument::Layout {
  public:
    explicit Layout(const PlainDocument& document)
        : document_(document),
          letters_(lettering_of(document.font_)),
          numbers_({"Liberation Serif,serif", 12}),
          pages_(document.text_, letters_, look_of(document.font_), frame()) {}

    int page_count() { return pages_.count(); }

    pages::Paper paper() const {
        return {in_points(document_.page_.width()), in_points(document_.page_.height())};
    }

    /// Draws the pages of a range, as long as `goes_on`.
    void draw(std::string_view range, pages::Canvas& canvas, const std::function<bool()>& goes_on) {
        constexpr std::string_view blanks = " \t";
        Progress progress(document_.machine_);
        const auto draw_one = [&](int page) {
            draw_page(page, canvas);
            progress(pages_.share_done());
        };
        if (range.find_first_not_of(blanks) == std::string_view::npos) {
            for (int page = 1; goes_on() && pages_.has(page); ++page)
                draw_one(page);
            return;
        }
        for (const PageRun& run :
             parse_page_range(range, page_count(), document_.path_.string(), microsoft_word)) {
            const int step = run.first <= run.last ? 1 : -1;
            for (int page = run.first; goes_on() && page != run.last + step; page += step)
                draw_one(page);
        }
    }

  private:
    /// Of a line of the header and the footer.
    double number_height() const { return numbers_.line_height() * hundredths_of_mm_in_point; }

    pages::TextPages::Frame frame() const {
        const PlainPage& page = document_.page_;
        const auto area = [&](bool is_first) {
            const auto [top, bottom] = page.area(is_first, number_height());
            return pages::TextPages::Area{in_points(top), in_points(bottom - top)};
        };
        const int width = page.width() - page.margin(Edge::left) - page.margin(Edge::right);
        return {in_points(page.margin(Edge::left)), in_points(width), area(true), area(false)};
    }

    void draw_page(int page, pages::Canvas& canvas) {
        canvas.start_page();
        canvas.set_color(0);
        for (const auto& [alignment, top] : document_.page_.numbers(page == 1, number_height()))
            draw_number(page, alignment, in_points(top) + numbers_.ascent(), canvas);
        pages_.draw(page, canvas);
    }

    void draw_number(int page, NumberAlignment alignment, double baseline, pages::Canvas& canvas) {
        const pages::Shaper::Piece& number = numbers_.word(std::to_string(page)).front();
        const auto [left, width, first, others] = frame();
        const double room = width - number.width;
        const double share = static_cast<double>(alignment) / 2;
        for (const pages::GlyphRun& run : number.runs)
            canvas.show(run, left + room * share + run.left, baseline);
    }

    const PlainDocument& document_;
    pages::Shaper letters_;
    pages::Shaper numbers_;
    pages::TextPages pages_;
};

PlainDocument::PlainDocument(Machine& machine, std::filesystem::path path, std::string_view content)
    : machine_(machine),
      path_(std::move(path)),
      text_(with_line_feeds(pages::text_of(content, text_code_page(character_locale())))),
      page_(usual_page()) {}

void PlainDocument::require_open() const {
    if (!is_open_) throw microsoft_word.error(microsoft_word.command_failed, "The document is closed.");
}

std::string PlainDocument::title() const {
    require_open();
    return path_.filename().string();
}

void PlainDocument::close() {
    require_open();
    is_open_ = false;
    text_ = {};
}

int PlainDocument::page_count() const {
    require_open();
    return Layout(*this).page_count();
}

std::string PlainDocument::pdf(std::string_view pages) const {
    std::string bytes;
    Layout layout(*this);
    pages::PageWriter writer(layout.paper(), {.title = {}, .creator = creator},
                             [&](std::string_view piece) { bytes += piece; });
    layout.draw(pages, writer, [] { return true; });
    writer.finish();
    return pages::with_language(std::move(bytes), language);
}

std::string PlainDocument::postscript(std::string_view pages) const {
    Layout layout(*this);
    pages::PostScriptPages writer(layout.paper(), {.title = title(), .creator = creator}, language);
    layout.draw(pages, writer, [&] { return writer.is_complete(); });
    return writer.is_complete() ? writer.finished() : pdf_to_postscript(pdf(pages), title());
}

void PlainDocument::export_pdf(std::string_view pages, const std::filesystem::path& output) const {
    require_open();
    write_output(output, machine_, microsoft_word, [&] { return pdf(pages); });
}

void PlainDocument::export_ps(std::string_view pages, const std::filesystem::path& output) const {
    require_open();
    write_output(output, machine_, microsoft_word, [&] {
        try {
            return postscript(pages);
        } catch (const std::runtime_error& failure) {
            throw microsoft_word.error(
                microsoft_word.command_failed,
                "Cannot print " + path_.string() + " as PostScript: " + failure.what() + ".");
        }
    });
}

void PlainDocument::set_orientation(bool landscape) {
    require_open();
    page_.turn(landscape);
}

bool PlainDocument::is_landscape() const {
    require_open();
    return page_.is_landscape();
}

float PlainDocument::margin(Edge edge) const {
    require_open();
    return static_cast<float>(in_points(page_.margin(edge)));
}

void PlainDocument::set_margin(Edge edge, float points) {
    require_open();
    const double wanted = points * hundredths_of_mm_in_point;
    if (!(wanted >= 0 && wanted <= page_.largest_margin(edge))) throw no_such_margin(path_, points);
    page_.set_margin(edge, static_cast<int>(std::lround(wanted)));
}

void PlainDocument::with_content_font(const std::function<void(TextFont&)>& use) {
    require_open();
    use(font_);
}

void PlainDocument::add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) {
    require_open();
    page_.add_number(band, alignment, on_first_page);
}

}  // namespace foliant::hosts::office
