#pragma once

#include <cairo-pdf.h>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/pages/glyphs.h"
#include "hosts/pages/paper.h"
#include "hosts/pages/paper_context.h"

/// Pages that a stand-in lays out itself, where no office does: text by Pango, which finds fonts for every script, on
/// pages by cairo. This room knows no host.
namespace foliant::hosts::pages {

/// What a document says of itself, in UTF-8; what is not becomes U+FFFD.
struct About {
    std::string title;    ///< "" for none
    std::string creator;  ///< the program that it comes from: "Notepad"
};

/// Writes a PDF whose text is text, page by page, as it is drawn: however many pages there are, memory holds one of
/// them. Lengths are in points; on a page, from its left and upper edges.
class PageWriter : public Canvas {
  public:
    /// Takes bytes of the file, in order. What it throws, the member throws that has brought it about.
    using Sink = std::function<void(std::string_view)>;

    PageWriter(const Paper& paper, const About& about, Sink sink);

    void start_page() override;
    /// The number of the page that is drawn on, from 1; 0 before the first.
    int page() const noexcept { return page_; }

    /// What the page is drawn on, for lines and areas. The writer's own; black and one point wide to begin with.
    cairo_t* canvas() const noexcept { return canvas_.get(); }

    /// A text to be set, in a font such as "Sans Bold 9" or "Courier, monospace 10", whose size is in points. It can
    /// be measured before there is a page.
    LayoutPtr make_layout(const char* font) const;
    /// Draws a text with its upper left corner there.
    void show(PangoLayout* text, double left, double top);
    /// Draws a line of a text, its first letter there.
    void show_line(PangoLayoutLine* line, double left, double baseline);

    void set_color(std::uint32_t color) override;
    void show(const GlyphRun& run, double left, double baseline) override;
    void fill(double left, double top, double width, double height) override;

    /// Completes the file: nothing can be drawn afterwards. Throws what the sink does, bad_alloc, and runtime_error
    /// with cairo's reason. Without it, half a file
    /// has gone to the sink, which may still be called when the writer goes.
    void finish();

  private:
    static cairo_status_t take(void* writer, const unsigned char* bytes, unsigned count);
    void set(cairo_pdf_metadata_t fact, const std::string& value);
    void check();
    void flush();

    struct Destroy {
        void operator()(cairo_t* canvas) const { cairo_destroy(canvas); }
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };

    Sink sink_;
    std::string waiting_;           ///< bytes for the sink, which come in small pieces
    std::exception_ptr failure_{};  ///< what the sink has thrown, which cairo cannot pass on
    std::unique_ptr<cairo_surface_t, Destroy> surface_;
    std::unique_ptr<cairo_t, Destroy> canvas_;
    ContextPtr context_ = make_paper_context();
    std::vector<cairo_glyph_t> glyphs_{};  ///< of a run; here, so that they need no new memory
    std::vector<cairo_text_cluster_t> clusters_{};
    int page_ = 0;
};

}  // namespace foliant::hosts::pages
