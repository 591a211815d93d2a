#include "hosts/pages/page_writer.h"

#include <algorithm>
#include <new>
#include <pango/pangocairo.h>
#include <stdexcept>
#include <utility>

namespace foliant::hosts::pages {

namespace {

constexpr std::size_t piece_size = std::size_t{1} << 16U;

double red_of(std::uint32_t color) {
    return static_cast<double>(color >> 16U & 0xFFU) / 0xFF;
}
double green_of(std::uint32_t color) {
    return static_cast<double>(color >> 8U & 0xFFU) / 0xFF;
}
double blue_of(std::uint32_t color) {
    return static_cast<double>(color & 0xFFU) / 0xFF;
}

}  // namespace

PageWriter::PageWriter(const Paper& paper, const About& about, Sink sink)
    : sink_(std::move(sink)),
      surface_(cairo_pdf_surface_create_for_stream(take, this, paper.width, paper.height)) {
    if (!about.title.empty()) set(CAIRO_PDF_METADATA_TITLE, about.title);
    set(CAIRO_PDF_METADATA_CREATOR, about.creator);
    canvas_.reset(cairo_create(surface_.get()));
    cairo_set_line_width(canvas_.get(), 1);
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

void PageWriter::set_color(std::uint32_t color) {
    cairo_set_source_rgb(canvas_.get(), red_of(color), green_of(color), blue_of(color));
}

/// The letters of a text that is read from right to left are told beginning with the last glyph.
void PageWriter::show(const GlyphRun& run, double left, double baseline) {
    glyphs_.clear();
    clusters_.clear();
    for (const Glyph& glyph : run.glyphs) {
        glyphs_.push_back({glyph.index, left + glyph.right, baseline + glyph.down});
        left += glyph.advance;
        if (glyph.size > 0 || clusters_.empty()) clusters_.push_back({static_cast<int>(glyph.size), 0});
        ++clusters_.back().num_glyphs;
    }
    if (run.is_backward) std::ranges::reverse(clusters_);
    cairo_set_scaled_font(canvas_.get(), pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(run.font)));
    cairo_show_text_glyphs(
        canvas_.get(), run.text.data(), static_cast<int>(run.text.size()), glyphs_.data(),
        static_cast<int>(glyphs_.size()), clusters_.data(), static_cast<int>(clusters_.size()),
        run.is_backward ? CAIRO_TEXT_CLUSTER_FLAG_BACKWARD : static_cast<cairo_text_cluster_flags_t>(0));
}

void PageWriter::fill(double left, double top, double width, double height) {
    cairo_rectangle(canvas_.get(), left, top, width, height);
    cairo_fill(canvas_.get());
}

void PageWriter::finish() {
    cairo_show_page(canvas_.get());
    cairo_surface_finish(surface_.get());
    check();
    flush();
}

}  // namespace foliant::hosts::pages
