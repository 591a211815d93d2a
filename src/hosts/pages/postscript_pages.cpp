#include "hosts/pages/postscript_pages.h"

#include <cmath>
#include <utility>

#include "hosts/pages/postscript_syntax.h"

namespace foliant::hosts::pages {

namespace {

constexpr double unknown = -1;

std::string numbered(std::string_view comment, int number) {
    return std::string(comment) + std::to_string(number) + '\n';
}

/// A text in digits, so that it cannot become PostScript, whatever it is.
std::string utf16_string(std::string_view utf8) {
    std::string digits = "<FEFF";
    append_utf16(digits, utf8);
    return digits + ">";
}

/// Where there is no pdfmark, it takes its operands away.
std::string marks(const About& about, std::string_view language) {
    std::string text = "/pdfmark where { pop } { userdict /pdfmark /cleartomark load put } ifelse\n[";
    if (!about.title.empty()) text += " /Title " + utf16_string(about.title);
    text += " /Creator " + utf16_string(about.creator) + " /DOCINFO pdfmark\n[ {Catalog} << /Lang (";
    return text += std::string(language) + ") >> /PUT pdfmark\n";
}

/// What a part of a font is called by before the name of the whole, by which nobody takes it for that: "AAAAAA+".
std::string subset_tag(std::size_t number) {
    constexpr std::size_t letters = 26;
    std::string tag = "AAAAAA+";
    for (std::size_t place = tag.size() - 1; place > 0 && number > 0; number /= letters)
        tag.at(--place) = static_cast<char>('A' + number % letters);
    return tag;
}

std::string size_of(const Paper& paper) {
    std::string text;
    append_number(text, paper.width);
    append_number(text, paper.height);
    return text;
}

}  // namespace

PostScriptPages::PostScriptPages(const Paper& paper, const About& about, std::string_view language)
    : paper_(paper) {
    const std::string box = std::to_string(std::lround(std::ceil(paper.width))) + ' ' +
                            std::to_string(std::lround(std::ceil(paper.height)));
    head_ = "%!PS-Adobe-3.0\n%%Creator: " + about.creator + "\n" + title_comment(about.title) +
            "%%LanguageLevel: 2\n%%DocumentMedia: plain " + box + " 0 () ()\n%%BoundingBox: 0 0 " + box +
            "\n%%Pages: (atend)\n%%EndComments\n%%BeginProlog\n/foliantS { moveto show } bind def\n"
            "/foliantX { moveto xshow } bind def\n%%EndProlog\n%%BeginSetup\n<< /PageSize [" +
            size_of(paper) + "] >> setpagedevice\n" + marks(about, language);
}

void PostScriptPages::start_page() {
    end_string();
    if (page_ > 0) pages_ += "showpage\n";
    ++page_;
    const std::string number = std::to_string(page_);
    pages_ += "%%Page: " + number + ' ' + number + '\n';
    written_ = {};
}

void PostScriptPages::set_color(std::uint32_t color) {
    constexpr double full = 0xFF;
    end_string();
    for (const unsigned shift : {16U, 8U, 0U})
        append_number(pages_, (color >> shift & 0xFFU) / full);
    pages_ += "setrgbcolor\n";
}

void PostScriptPages::fill(double left, double top, double width, double height) {
    end_string();
    for (const double number : {left, paper_.height - top - height, width, height})
        append_number(pages_, number);
    pages_ += "rectfill\n";
}

PostScriptPages::Font PostScriptPages::made(PangoFont* font) {
    const LetterForm form = letter_form(font);
    if (form == LetterForm::unknown) return {};
    hb_font_t* measures = pango_font_get_hb_font(font);
    hb_face_t* face = hb_font_get_face(measures);
    const void* key = form == LetterForm::truetype ? static_cast<const void*>(face) : font;
    std::unique_ptr<Source>& source = sources_[key];
    if (!source) {
        source = std::make_unique<Source>();
        source->font = font;
        source->name = postscript_name(font);
    }
    const FontDescriptionPtr description(pango_font_describe_with_absolute_size(font));
    const double points =
        static_cast<double>(pango_font_description_get_size(description.get())) / PANGO_SCALE;
    return {.source = source.get(),
            .points = points,
            .measures = measures,
            .advances = std::vector<double>(hb_face_get_glyph_count(face), unknown)};
}

PostScriptPages::Font& PostScriptPages::font_of(PangoFont* font) {
    if (const auto known = fonts_.find(font); known != fonts_.end()) return known->second;
    return fonts_.emplace(font, made(font)).first->second;
}

PostScriptPages::Code PostScriptPages::code_of(Source& source, unsigned glyph, std::string_view text) {
    const std::size_t letter = text.size() == 1 ? static_cast<unsigned char>(text.front()) : 0;
    if (letter > 0 && source.ascii.at(letter).font != nullptr && source.ascii.at(letter).glyph == glyph)
        return {source.ascii.at(letter).font, static_cast<unsigned char>(letter)};
    for (const auto& font : source.fonts)
        if (const auto code = font->code_of(glyph, text)) {
            if (*code == letter) source.ascii.at(letter) = {glyph, font.get()};
            return {font.get(), *code};
        }
    source.fonts.push_back(
        std::make_unique<PostScriptFont>(source.font, subset_tag(made_fonts_++) + source.name));
    return {source.fonts.back().get(), *source.fonts.back()->code_of(glyph, text)};
}

void PostScriptPages::add_character(Font& font, const Glyph& glyph, std::string_view text) {
    constexpr double same = 0.001;  // points; Pango counts in thousandths
    const auto [shown_with, character] = code_of(*font.source, glyph.index, text);
    if (const Style style{shown_with, font.points}; style != style_) {
        const double place = left_ + length_;
        end_string();
        left_ = place;
        style_ = style;
    }
    double& natural = font.advances.at(glyph.index);
    if (natural == unknown)
        natural = static_cast<double>(hb_font_get_glyph_h_advance(font.measures, glyph.index)) / PANGO_SCALE;
    is_natural_ = is_natural_ && std::fabs(natural - glyph.advance) <= same;
    characters_ += static_cast<char>(character);
    advances_.push_back(glyph.advance);
    length_ += glyph.advance;
}

void PostScriptPages::show(const GlyphRun& run, double left, double baseline) {
    if (!is_complete_) return;
    Font& font = font_of(run.font);
    is_complete_ = font.source != nullptr;
    if (!is_complete_) return;
    end_string();
    left_ = left;
    baseline_ = baseline;
    std::size_t place = run.is_backward ? run.text.size() : 0;
    for (const Glyph& glyph : run.glyphs) {
        if (run.is_backward) place -= glyph.size;
        const std::string_view text = std::string_view(run.text).substr(place, glyph.size);
        if (!run.is_backward) place += glyph.size;
        const double begin = left_ + length_;
        if (glyph.right != 0 || glyph.down != 0) {
            end_string();
            left_ = begin + glyph.right;
            baseline_ = baseline + glyph.down;
            add_character(font, glyph, text);
            end_string();
            left_ = begin + glyph.advance;
            baseline_ = baseline;
        } else {
            add_character(font, glyph, text);
        }
    }
    end_string();
}

void PostScriptPages::end_string() {
    constexpr std::size_t numbers_a_line = 16;
    if (characters_.empty()) return;
    write_style();
    append_string(pages_, characters_);
    for (std::size_t i = 0; !is_natural_ && i < advances_.size(); ++i) {
        pages_ += i == 0 ? "[" : i % numbers_a_line == 0 ? "\n" : "";
        append_number(pages_, advances_[i]);
    }
    pages_ += is_natural_ ? "" : "]";
    append_number(pages_, left_);
    append_number(pages_, paper_.height - baseline_);
    pages_ += is_natural_ ? "foliantS\n" : "foliantX\n";
    characters_.clear();
    advances_.clear();
    is_natural_ = true;
    length_ = 0;
}

void PostScriptPages::write_style() {
    if (style_ == written_) return;
    written_ = style_;
    pages_ += '/' + style_.font->name() + ' ';
    append_number(pages_, style_.points);
    pages_ += "selectfont\n";
}

std::string PostScriptPages::finished() {
    end_string();
    std::string file = std::move(head_);
    for (const auto& [key, source] : sources_)
        for (const auto& font : source->fonts)
            file += font->definition();
    file += "%%EndSetup\n";
    file += std::exchange(pages_, {});
    return file += "showpage\n%%Trailer\n" + numbered("%%Pages: ", page_) + "%%EOF\n";
}

}  // namespace foliant::hosts::pages
