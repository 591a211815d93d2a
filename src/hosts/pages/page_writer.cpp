#include "hosts/pages/page_writer.h"

#include <new>
#include <pango/pangocairo.h>
#include <stdexcept>
#include <utility>

namespace foliant::hosts::pages {

namespace {

constexpr std::size_t piece_size = std::size_t{1} << 16U;

/// Letters as they are designed, and where they belong: a page is no screen.
void set_for_paper(PangoContext* context) {
    constexpr double points_an_inch = 72;
    pango_cairo_context_set_resolution(context, points_an_inch);
    pango_context_set_round_glyph_positions(context, FALSE);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options);
    cairo_font_options_destroy(options);
}

}  // namespace

PageWriter::PageWriter(const Paper& paper, const About& about, Sink sink)
    : sink_(std::move(sink)),
      surface_(cairo_pdf_surface_create_for_stream(take, this, paper.width, paper.height)) {
    set(CAIRO_PDF_METADATA_TITLE, about.title);
    set(CAIRO_PDF_METADATA_CREATOR, about.creator);
    canvas_.reset(cairo_create(surface_.get()));
    cairo_set_line_width(canvas_.get(), 1);
    context_.reset(pango_cairo_create_context(canvas_.get()));
    set_for_paper(context_.get());
}

/// A file's name need not be UTF-8, but what cairo is told has to be.
void PageWriter::set(cairo_pdf_metadata_t fact, const std::string& value) {
    const std::unique_ptr<char, decltype(&g_free)> text(
        g_utf8_make_valid(value.data(), static_cast<gssize>(value.size())), g_free);
    cairo_pdf_surface_set_metadata(surface_.get(), fact, text.get());
}

cairo_status_t PageWriter::take(void* writer, const unsigned char* bytes, unsigned count) {
    auto& self = *static_cast<PageWriter*>(writer);
    try {
        self.waiting_.append(reinterpret_cast<const char*>(bytes), count);
        if (self.waiting_.size() >= piece_size) self.flush();
        return CAIRO_STATUS_SUCCESS;
    } catch (...) {
        self.failure_ = std::current_exception();
        return CAIRO_STATUS_WRITE_ERROR;
    }
}

void PageWriter::flush() {
    sink_(waiting_);
    waiting_.clear();
}

void PageWriter::check() {
    if (failure_) std::rethrow_exception(failure_);
    for (const cairo_status_t status : {cairo_status(canvas_.get()), cairo_surface_status(surface_.get())}) {
        if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
        if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
    }
}

void PageWriter::start_page() {
    if (page_++ > 0) cairo_show_page(canvas_.get());
    check();
}

LayoutPtr PageWriter::make_layout(const char* font) const {
    LayoutPtr layout(pango_layout_new(context_.get()));
    PangoFontDescription* description = pango_font_description_from_string(font);
    pango_layout_set_font_description(layout.get(), description);
    pango_font_description_free(description);
    return layout;
}

void PageWriter::show(PangoLayout* text, double left, double top) {
    cairo_move_to(canvas_.get(), left, top);
    pango_cairo_show_layout(canvas_.get(), text);
}

void PageWriter::show_line(PangoLayoutLine* line, double left, double baseline) {
    cairo_move_to(canvas_.get(), left, baseline);
    pango_cairo_show_layout_line(canvas_.get(), line);
}

void PageWriter::finish() {
    cairo_show_page(canvas_.get());
    cairo_surface_finish(surface_.get());
    check();
    flush();
}

}  // namespace foliant::hosts::pages
