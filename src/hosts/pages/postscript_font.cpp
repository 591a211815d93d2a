#include "hosts/pages/postscript_font.h"

#include <algorithm>
#include <fontconfig/fontconfig.h>
#include <hb.h>
#include <initializer_list>
#include <pango/pangofc-font.h>
#include <set>
#include <string_view>
#include <utility>

#include "hosts/pages/postscript_syntax.h"
#include "hosts/pages/truetype_subset.h"
#include "hosts/pages/type1_outline.h"

namespace foliant::hosts::pages {

namespace {

bool has_table(hb_face_t* face, std::string_view name) {
    hb_blob_t* blob = hb_face_reference_table(face, HB_TAG(name[0], name[1], name[2], name[3]));
    const bool has = hb_blob_get_length(blob) > 0;
    hb_blob_destroy(blob);
    return has;
}

bool has_any_table(hb_face_t* face, std::initializer_list<std::string_view> names) {
    return std::ranges::any_of(names, [&](std::string_view name) { return has_table(face, name); });
}

/// How letters are slanted for want of a file with slanted ones; null for none.
const FcMatrix* slant_of(PangoFont* font) {
    FcMatrix* matrix = nullptr;
    FcPatternGetMatrix(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_MATRIX, 0, &matrix);
    return matrix;
}

bool is_emboldened(PangoFont* font) {
    FcBool is_bold = FcFalse;
    return FcPatternGetBool(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_EMBOLDEN, 0, &is_bold) ==
               FcResultMatch &&
           is_bold == FcTrue;
}

}  // namespace

LetterForm letter_form(PangoFont* font) {
    if (!PANGO_IS_FC_FONT(font) || is_emboldened(font)) return LetterForm::unknown;
    hb_face_t* face = hb_font_get_face(pango_font_get_hb_font(font));
    if (has_any_table(face, {"COLR", "CBDT", "sbix", "SVG "})) return LetterForm::unknown;
    if (has_table(face, "glyf") && !has_table(face, "fvar") && slant_of(font) == nullptr)
        return LetterForm::truetype;
    return has_any_table(face, {"glyf", "CFF ", "CFF2"}) ? LetterForm::drawn : LetterForm::unknown;
}

std::string postscript_name(PangoFont* font) {
    FcChar8* given = nullptr;
    std::string name = "Text";
    if (FcPatternGetString(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_POSTSCRIPT_NAME, 0, &given) ==
        FcResultMatch)
        name = reinterpret_cast<const char*>(given);
    // Others have a meaning of their own in PostScript.
    std::erase_if(name, [](char letter) {
        return (letter < '0' || letter > '9') && (letter < 'A' || letter > 'Z') &&
               (letter < 'a' || letter > 'z') && letter != '-';
    });
    return name;
}

PostScriptFont::PostScriptFont(PangoFont* font, std::string name)
    : font_(font), form_(letter_form(font)), name_(std::move(name)) {}

std::optional<unsigned char> PostScriptFont::code_of(unsigned glyph, std::string_view text) {
    const std::pair<unsigned, std::string> key(glyph, text);
    if (const auto known = codes_.find(key); known != codes_.end()) return known->second;
    const auto byte = text.size() == 1 ? static_cast<unsigned char>(text.front()) : 0U;
    unsigned code = byte;
    if (byte < 0x20 || byte > 0x7E || !is_free(byte)) {
        const auto count = static_cast<unsigned>(characters_.size());
        for (unsigned tries = 0; tries < count && !is_free(next_); ++tries)
            next_ = (next_ + 1) % count;
        if (!is_free(next_)) return std::nullopt;
        code = next_;
    }
    characters_.at(code) = {glyph, std::string(text), true};
    codes_.emplace(key, static_cast<unsigned char>(code));
    return static_cast<unsigned char>(code);
}

/// Ghostscript leaves out what a whole font means where a drawn letter of it stands for several, as "fi" does: such a
/// letter says it by its name, as all viewers know it.
bool PostScriptFont::is_told_by_name(const Character& character) const {
    constexpr std::size_t digits_of_one = 4;
    if (form_ != LetterForm::drawn) return false;
    std::string digits;
    append_utf16(digits, character.text);
    return digits.size() > digits_of_one;
}

std::string PostScriptFont::name_of(unsigned code) const {
    std::string number = "c" + std::to_string(code);
    if (!is_told_by_name(characters_.at(code))) return number;
    std::string name = "uni";
    append_utf16(name, characters_.at(code).text);
    return name + '.' + number;
}

std::string PostScriptFont::definition() const {
    std::string encoding;
    std::string meanings;
    for (unsigned code = 1; code < characters_.size(); ++code) {
        const Character& character = characters_.at(code);
        if (!character.is_used) continue;
        encoding += "dup " + std::to_string(code) + " /" + name_of(code) + " put\n";
        if (character.text.empty() || is_told_by_name(character)) continue;
        meanings += '/' + name_of(code) + " <";
        append_utf16(meanings, character.text);
        meanings += ">\n";
    }
    return "%%BeginResource: font " + name_ + "\n12 dict begin\n/FontName /" + name_ +
           " def\n/PaintType 0 def\n/Encoding 256 array\n0 1 255 {1 index exch /.notdef put} for\n" +
           encoding + "readonly def\n/FontInfo << /GlyphNames2Unicode <<\n" + meanings + ">> >> def\n" +
           (form_ == LetterForm::drawn ? drawn_body() : truetype_body()) +
           "FontName currentdict end definefont pop\n%%EndResource\n";
}

/// For each character its name and what `outline` writes for its glyph.
template <class Outline>
std::string PostScriptFont::outlines(const std::string& none, Outline outline) const {
    std::string text = "/CharStrings 256 dict dup begin\n/.notdef " + none + " def\n";
    for (unsigned code = 1; code < characters_.size(); ++code)
        if (const Character& character = characters_.at(code); character.is_used)
            text += '/' + name_of(code) + ' ' + outline(character.glyph) + " def\n";
    return text + "end readonly def\n";
}

/// The outlines are in units of the em, as every TrueType font in PostScript has them.
std::string PostScriptFont::truetype_body() const {
    std::set<unsigned> glyphs;
    for (const Character& character : characters_)
        if (character.is_used) glyphs.insert(character.glyph);
    const TrueTypeSubset subset = truetype_subset(hb_font_get_face(pango_font_get_hb_font(font_)), glyphs);
    return "/FontType 42 def\n/FontMatrix [1 0 0 1 0 0] def\n/FontBBox [" + subset.bounding_box + "] def\n" +
           outlines("0", [&](unsigned glyph) { return std::to_string(subset.numbers.at(glyph)); }) +
           "/sfnts " + subset.file + " def\n";
}

std::string PostScriptFont::drawn_body() const {
    const Type1Outlines drawn(pango_font_get_hb_font(font_));
    const FcMatrix* slant = slant_of(font_);
    const FcMatrix matrix = slant == nullptr ? FcMatrix{1, 0, 0, 1} : *slant;
    std::string text = "/FontType 1 def\n/FontMatrix [";
    for (const double part : {matrix.xx, matrix.yx, matrix.xy, matrix.yy})
        append_number(text, part / drawn.units_an_em());
    text +=
        "0 0] def\n/FontBBox {0 0 0 0} def\n/Private 4 dict dup begin\n/BlueValues [] def\n"
        "/MinFeature {16 16} def\n/password 5839 def\nend readonly def\n";
    const auto outline = [&](unsigned glyph) { return '<' + drawn.outline(glyph) + '>'; };
    return text + outlines(outline(0), outline);
}

}  // namespace foliant::hosts::pages
