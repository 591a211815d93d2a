#include "hosts/office/print/field_texts.h"

#include <algorithm>
#include <array>
#include <cairo-pdf.h>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <pango/pangocairo.h>
#include <qpdf/BufferInputSource.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <sstream>
#include <string>
#include <vector>

#include "hosts/pages/paper_context.h"

namespace foliant::hosts::office {

namespace {

constexpr double inset = 2;             // points from the edges, as viewers have it
constexpr double usual_font_size = 12;  // points; of a field that is as large as it can be, at most
constexpr double longest_side = 14400;  // points, of a page of PDF

// Bits of a field's /Ff, from the PDF reference.
constexpr int multiline = 1 << 12;
constexpr int password = 1 << 13;
constexpr int combo = 1 << 17;

/// How a field's text is written.
struct Hand {
    std::string font = "Helvetica";
    double size = usual_font_size;  // points
    std::array<double, 3> colour{};
};

/// A field that shows a text.
struct Field {
    QPDFObjectHandle widget;
    std::string text;
    Hand hand;
    double width = 0;  // points
    double height = 0;
    PangoAlignment alignment = PANGO_ALIGN_LEFT;
    bool has_lines = false;
};

/// Fields hand down what they have in common to those below them.
QPDFObjectHandle inherited(QPDFObjectHandle field, const char* key) {
    constexpr int deepest = 32;
    for (int depth = 0; depth < deepest && field.isDictionary(); ++depth) {
        if (field.hasKey(key)) return field.getKey(key);
        field = field.getKey("/Parent");
    }
    return QPDFObjectHandle::newNull();
}

int whole_number(QPDFObjectHandle number) {
    return number.isInteger() ? number.getIntValueAsInt() : 0;
}

std::string text_of(QPDFObjectHandle value) {
    return value.isString() ? value.getUTF8Value() : "";
}

/// What a choice shows for a value: options may be pairs of a value and what is shown.
std::string shown_for(QPDFObjectHandle option, const std::string& value) {
    const bool is_pair = option.isArray() && option.getArrayNItems() == 2;
    return is_pair && text_of(option.getArrayItem(0)) == value ? text_of(option.getArrayItem(1)) : value;
}

std::string text_of_choice(QPDFObjectHandle widget) {
    QPDFObjectHandle options = inherited(widget, "/Opt");
    std::string text = text_of(inherited(widget, "/V"));
    if (!options.isArray()) return text;
    if ((whole_number(inherited(widget, "/Ff")) & combo) != 0) {
        for (const QPDFObjectHandle& option : options.getArrayAsVector())
            if (const std::string shown = shown_for(option, text); shown != text) return shown;
        return text;
    }
    std::string lines;
    for (QPDFObjectHandle option : options.getArrayAsVector())
        lines += text_of(option.isArray() && option.getArrayNItems() == 2 ? option.getArrayItem(1) : option) +
                 "\n";
    return lines;
}

std::string text_of_field(QPDFObjectHandle widget) {
    QPDFObjectHandle kind = inherited(widget, "/FT");
    if (kind.isNameAndEquals("/Ch")) return text_of_choice(widget);
    if (!kind.isNameAndEquals("/Tx")) return "";
    std::string text = text_of(inherited(widget, "/V"));
    if ((whole_number(inherited(widget, "/Ff")) & password) == 0) return text;
    return std::string(static_cast<std::size_t>(g_utf8_strlen(text.c_str(), -1)), '*');
}

/// "0 0 1 rg /He 12 Tf": operands before their operators.
Hand hand_of(QPDFObjectHandle widget, QPDFObjectHandle form) {
    Hand hand;
    QPDFObjectHandle appearance = inherited(widget, "/DA");
    if (!appearance.isString()) appearance = form.getKey("/DA");
    std::istringstream words(text_of(appearance));
    std::vector<std::string> operands;
    const auto number = [&](std::ptrdiff_t from_end) {
        return std::strtod((operands.end() - from_end)->c_str(), nullptr);
    };
    for (std::string word; words >> word; operands.push_back(word)) {
        if (word == "g" && !operands.empty()) hand.colour.fill(number(1));
        if (word == "rg" && operands.size() >= 3) hand.colour = {number(3), number(2), number(1)};
        if (word != "Tf" || operands.size() < 2) continue;
        hand.size = number(1);
        QPDFObjectHandle fonts = form.getKey("/DR").getKeyIfDict("/Font");
        QPDFObjectHandle name = fonts.getKeyIfDict(*(operands.end() - 2)).getKeyIfDict("/BaseFont");
        if (name.isName()) hand.font = name.getName().substr(1);
    }
    std::ranges::replace(hand.font, '-', ' ');
    return hand;
}

Field field_of(QPDFObjectHandle widget, QPDFObjectHandle form) {
    Field field{widget, text_of_field(widget), hand_of(widget, form)};
    QPDFObjectHandle::Rectangle place = widget.getKey("/Rect").getArrayAsRectangle();
    field.width = std::clamp(place.urx - place.llx, 0.0, longest_side);
    field.height = std::clamp(place.ury - place.lly, 0.0, longest_side);
    const bool is_list = inherited(widget, "/FT").isNameAndEquals("/Ch");
    const int flags = whole_number(inherited(widget, "/Ff"));
    field.has_lines = is_list ? (flags & combo) == 0 : (flags & multiline) != 0;
    constexpr std::array alignments{PANGO_ALIGN_LEFT, PANGO_ALIGN_CENTER, PANGO_ALIGN_RIGHT};
    const int alignment = whole_number(inherited(widget, "/Q"));
    field.alignment = alignments.at(static_cast<std::size_t>(std::clamp(alignment, 0, 2)));
    if (field.hand.size <= 0) field.hand.size = std::min(usual_font_size, field.height * 0.7);
    return field;
}

std::vector<Field> fields_with_text(QPDF& document, QPDFObjectHandle form) {
    std::vector<Field> fields;
    for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(document).getAllPages()) {
        QPDFObjectHandle annotations = page.getObjectHandle().getKey("/Annots");
        if (!annotations.isArray()) continue;
        for (QPDFObjectHandle annotation : annotations.getArrayAsVector()) {
            if (!annotation.isDictionary() || text_of_field(annotation).empty()) continue;
            Field field = field_of(annotation, form);
            if (field.width > 0 && field.height > 0) fields.push_back(std::move(field));
        }
    }
    return fields;
}

void draw(cairo_t* drawing, PangoContext* context, const Field& field) {
    const pages::LayoutPtr layout(pango_layout_new(context));
    const pages::FontDescriptionPtr font(pango_font_description_from_string(field.hand.font.c_str()));
    pango_font_description_set_absolute_size(font.get(), field.hand.size * PANGO_SCALE);
    pango_layout_set_font_description(layout.get(), font.get());
    pango_layout_set_text(layout.get(), field.text.c_str(), static_cast<int>(field.text.size()));
    pango_layout_set_alignment(layout.get(), field.alignment);
    pango_layout_set_width(layout.get(),
                           static_cast<int>(std::max(field.width - 2 * inset, 1.0) * PANGO_SCALE));
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    // A line that is too long goes on over the edge, where it is cut off.
    if (!field.has_lines) pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
    if (!field.has_lines && field.alignment == PANGO_ALIGN_LEFT) pango_layout_set_width(layout.get(), -1);
    int width = 0;
    int height = 0;
    pango_layout_get_size(layout.get(), &width, &height);
    const double top = field.has_lines ? inset : (field.height - pages::points(height)) / 2;
    const auto [red, green, blue] = field.hand.colour;
    cairo_set_source_rgb(drawing, red, green, blue);
    cairo_move_to(drawing, inset, top);
    pango_cairo_show_layout(drawing, layout.get());
}

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int size) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), size);
    return CAIRO_STATUS_SUCCESS;
}

/// A PDF with a page for each field, of its size; so all of them share the fonts.
std::string pages_of(const std::vector<Field>& fields) {
    std::string pdf;
    const auto context = pages::make_paper_context();
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_pdf_surface_create_for_stream(append, &pdf, 1, 1), cairo_surface_destroy);
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> drawing(cairo_create(surface.get()),
                                                                     cairo_destroy);
    for (const Field& field : fields) {
        cairo_pdf_surface_set_size(surface.get(), field.width, field.height);
        draw(drawing.get(), context.get(), field);
        cairo_show_page(drawing.get());
    }
    cairo_surface_finish(surface.get());
    return pdf;
}

}  // namespace

void draw_field_texts(QPDF& document, QPDF& looks) {
    std::vector<Field> fields = fields_with_text(document, document.getRoot().getKey("/AcroForm"));
    if (fields.empty()) return;
    looks.processInputSource(std::make_shared<BufferInputSource>("looks", pages_of(fields)));
    auto field = fields.begin();
    for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(looks).getAllPages()) {
        QPDFObjectHandle look = looks.makeIndirectObject(page.getFormXObjectForPage());
        QPDFObjectHandle appearance = QPDFObjectHandle::newDictionary();
        appearance.replaceKey("/N", document.copyForeignObject(look));
        (field++)->widget.replaceKey("/AP", appearance);
    }
}

}  // namespace foliant::hosts::office
