#include "hosts/office/print/flattening.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <poppler.h>
#include <qpdf/Pl_Flate.hh>
#include <qpdf/Pl_String.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QUtil.hh>
#include <string>
#include <vector>

#include "hosts/office/print/pdf_to_postscript.h"
#include "hosts/office/print/written_pdf.h"

namespace foliant::hosts::office {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
using DocumentPtr = std::unique_ptr<PopplerDocument, Unref>;
using PagePtr = std::unique_ptr<PopplerPage, Unref>;

DocumentPtr open_pdf(std::string_view pdf) {
    GBytes* bytes = g_bytes_new_static(pdf.data(), pdf.size());
    DocumentPtr document(poppler_document_new_from_bytes(bytes, nullptr, nullptr));
    g_bytes_unref(bytes);
    if (!document) throw PostScriptFailure("its flattened pages cannot be read");
    return document;
}

PagePtr open_page(const DocumentPtr& document, int index) {
    PagePtr page(poppler_document_get_page(document.get(), index));
    if (!page) throw PostScriptFailure("page " + std::to_string(index + 1) + " cannot be read");
    return page;
}

constexpr double points_an_inch = 72;

struct Size {
    double width;  // points
    double height;
};

Size size_of(const PagePtr& page) {
    Size size{};
    poppler_page_get_size(page.get(), &size.width, &size.height);
    return size;
}

/// A page as it looks on white paper.
class Picture {
  public:
    Picture(const PagePtr& page, double resolution)
        : width_(pixels(size_of(page).width, resolution)),
          height_(pixels(size_of(page).height, resolution)),
          surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width_, height_), &cairo_surface_destroy) {
        const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> canvas(cairo_create(surface_.get()),
                                                                        &cairo_destroy);
        cairo_set_source_rgb(canvas.get(), 1, 1, 1);
        cairo_paint(canvas.get());
        cairo_scale(canvas.get(), resolution / points_an_inch, resolution / points_an_inch);
        poppler_page_render(page.get(), canvas.get());
        cairo_surface_flush(surface_.get());
        if (cairo_surface_status(surface_.get()) != CAIRO_STATUS_SUCCESS ||
            cairo_status(canvas.get()) != CAIRO_STATUS_SUCCESS)
            throw PostScriptFailure("a page cannot be drawn");
    }

    int width() const noexcept { return width_; }
    int height() const noexcept { return height_; }

    /// Red, green and blue of a pixel.
    std::array<int, 3> at(int x, int y) const {
        const unsigned char* row =
            cairo_image_surface_get_data(surface_.get()) +
            static_cast<std::ptrdiff_t>(y) * cairo_image_surface_get_stride(surface_.get());
        const std::uint32_t pixel = reinterpret_cast<const std::uint32_t*>(row)[x];
        constexpr std::uint32_t level = 0xFF;
        return {static_cast<int>(pixel >> 16U & level), static_cast<int>(pixel >> 8U & level),
                static_cast<int>(pixel & level)};
    }

  private:
    static int pixels(double points, double resolution) {
        return std::max(1, static_cast<int>(std::ceil(points * resolution / points_an_inch)));
    }

    int width_;
    int height_;
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
};

/// Whether two pages differ in more than the edges of things.
bool look_alike(const PagePtr& one, const PagePtr& other) {
    constexpr double resolution = 24;  // dots an inch
    constexpr int visible = 64;        // of 255 levels of a colour
    constexpr double most = 0.01;      // of a page
    const Picture first(one, resolution);
    const Picture second(other, resolution);
    if (first.width() != second.width() || first.height() != second.height()) return false;
    int different = 0;
    for (int y = 0; y < first.height(); ++y)
        for (int x = 0; x < first.width(); ++x) {
            const auto a = first.at(x, y);
            const auto b = second.at(x, y);
            if (std::abs(a[0] - b[0]) > visible || std::abs(a[1] - b[1]) > visible ||
                std::abs(a[2] - b[2]) > visible)
                ++different;
        }
    return different <= most * first.width() * first.height();
}

/// The characters of a page but for white space, in the order of their codes.
std::vector<gunichar> characters_of(const PagePtr& page) {
    const std::unique_ptr<char, decltype(&g_free)> text(poppler_page_get_text(page.get()), &g_free);
    std::vector<gunichar> characters;
    for (const char* next = text.get(); next != nullptr && *next != '\0'; next = g_utf8_next_char(next))
        if (const gunichar character = g_utf8_get_char(next); !g_unichar_isspace(character))
            characters.push_back(character);
    std::ranges::sort(characters);
    return characters;
}

bool is_as_good_as(const PagePtr& flattened, const PagePtr& original) {
    return std::ranges::includes(characters_of(flattened), characters_of(original)) &&
           look_alike(flattened, original);
}

/// Lets through what shows text, and says where and in which font; not what paints, clips or colours.
class TextOnly : public QPDFObjectHandle::TokenFilter {
  public:
    void handleToken(const QPDFTokenizer::Token& token) override {
        operation_ += token.getRawValue();
        if (token.getType() != QPDFTokenizer::tt_word) return;
        if (std::ranges::find(shown, token.getValue()) != shown.end()) write(operation_ + "\n");
        operation_.clear();
    }

  private:
    static constexpr std::array<std::string_view, 20> shown = {"q",  "Q",  "cm", "BT", "ET", "Tf", "Td",
                                                               "TD", "Tm", "T*", "Tj", "TJ", "'",  "\"",
                                                               "Tc", "Tw", "Tz", "TL", "Ts", "Do"};
    std::string operation_;
};

std::string text_of(QPDFPageObjectHelper page_or_form) {
    std::string text;
    Pl_String collected("text", nullptr, text);
    TextOnly filter;
    page_or_form.filterContents(&filter, &collected);
    return text;
}

/// What the text of a page needs: its fonts, and of what it draws the forms, with nothing but text in them.
QPDFObjectHandle resources_of_text(QPDFPageObjectHelper page) {
    const auto text_forms = [](QPDFObjectHandle& form, QPDFObjectHandle&, const std::string&) {
        form.replaceStreamData(text_of(form), QPDFObjectHandle::newNull(), QPDFObjectHandle::newNull());
        form.getDict().removeKey("/Group");
    };
    page.forEachFormXObject(true, text_forms);
    const auto without_images = [](QPDFObjectHandle&, QPDFObjectHandle& drawn, const std::string& name) {
        drawn.removeKey(name);
    };
    page.forEachImage(true, without_images);
    return page.getAttribute("/Resources", true);
}

std::string flate(const std::string& bytes) {
    std::string compressed;
    Pl_String collected("compressed", nullptr, compressed);
    Pl_Flate flate("flate", &collected, Pl_Flate::a_deflate);
    flate.write(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
    flate.finish();
    return compressed;
}

/// The look of a page, as an image of a PDF.
QPDFObjectHandle image_of(const PagePtr& page, QPDF& document) {
    constexpr double print_resolution = 300;  // dots an inch
    constexpr double most_pixels = 40e6;
    const Size size = size_of(page);
    const double inches = size.width * size.height / (points_an_inch * points_an_inch);
    const Picture picture(page, std::min(print_resolution, std::sqrt(most_pixels / inches)));
    std::string bytes;
    bytes.reserve(std::size_t{3} * static_cast<std::size_t>(picture.width()) *
                  static_cast<std::size_t>(picture.height()));
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            for (const int level : picture.at(x, y))
                bytes += static_cast<char>(level);
    QPDFObjectHandle image = QPDFObjectHandle::newStream(&document, flate(bytes));
    image.replaceDict(QPDFObjectHandle::parse(
        "<< /Type /XObject /Subtype /Image /ColorSpace /DeviceRGB /BitsPerComponent 8 /Filter /FlateDecode "
        "/Width " +
        std::to_string(picture.width()) + " /Height " + std::to_string(picture.height()) + " >>"));
    return image;
}

/// Makes a page the picture of the original, over its text.
void replace_page(QPDFPageObjectHelper page, QPDFPageObjectHelper original, const PagePtr& look) {
    QPDF& document = *page.getObjectHandle().getOwningQPDF();
    QPDFObjectHandle resources = resources_of_text(original);
    const std::string text = text_of(original);
    resources =
        document.copyForeignObject(original.getObjectHandle().getOwningQPDF()->makeIndirectObject(resources));
    QPDFObjectHandle drawn = resources.getKey("/XObject");
    // Pages share what they draw; the picture is this one's.
    drawn = drawn.isDictionary() ? drawn.shallowCopy() : QPDFObjectHandle::newDictionary();
    drawn.replaceKey("/FoliantPage", image_of(look, document));
    resources.replaceKey("/XObject", drawn);
    const QPDFObjectHandle::Rectangle box = page.getMediaBox().getArrayAsRectangle();
    const auto number = [](double length) { return QUtil::double_to_string(length) + " "; };
    const std::string contents = "q 1 1 1 rg\n" + text + "Q\nq " + number(box.urx - box.llx) + "0 0 " +
                                 number(box.ury - box.lly) + number(box.llx) + number(box.lly) +
                                 "cm /FoliantPage Do Q\n";
    page.getObjectHandle().replaceKey("/Resources", resources);
    page.getObjectHandle().replaceKey("/Contents", QPDFObjectHandle::newStream(&document, contents));
    page.getObjectHandle().removeKey("/Group");
}

std::vector<std::size_t> worse_pages(std::string_view flattened, std::string_view original) {
    const DocumentPtr document = open_pdf(flattened);
    const DocumentPtr wanted = open_pdf(original);
    const int count = poppler_document_get_n_pages(document.get());
    if (count != poppler_document_get_n_pages(wanted.get())) return {};
    std::vector<std::size_t> worse;
    for (int index = 0; index < count; ++index)
        if (!is_as_good_as(open_page(document, index), open_page(wanted, index)))
            worse.push_back(static_cast<std::size_t>(index));
    return worse;
}

void read(QPDF& document, std::string_view pdf) {
    document.setSuppressWarnings(true);
    document.processMemoryFile("document", pdf.data(), pdf.size());
}

std::string with_pages_replaced(std::string_view flattened, std::string_view original,
                                const std::vector<std::size_t>& worse) {
    QPDF document;
    read(document, flattened);
    QPDF source;
    read(source, original);
    const DocumentPtr looks = open_pdf(original);
    const std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(document).getAllPages();
    const std::vector<QPDFPageObjectHelper> originals = QPDFPageDocumentHelper(source).getAllPages();
    for (const std::size_t index : worse)
        replace_page(pages.at(index), originals.at(index), open_page(looks, static_cast<int>(index)));
    return written_pdf(document);
}

}  // namespace

std::string with_flattening_mended(std::string flattened, std::string_view original) {
    const std::vector<std::size_t> worse = worse_pages(flattened, original);
    if (worse.empty()) return flattened;
    try {
        return with_pages_replaced(flattened, original, worse);
    } catch (const QPDFExc& failure) {
        throw PostScriptFailure(std::string("its contents cannot be read: ") + failure.what());
    }
}

}  // namespace foliant::hosts::office
