#include "hosts/office/print/pdf_to_postscript.h"

#include <charconv>
#include <sstream>

#include "hosts/office/print/draw_pages.h"
#include "hosts/office/print/pdf_marks.h"
#include "hosts/office/print/unicode_maps.h"
#include "hosts/pages/postscript_syntax.h"

namespace foliant::hosts::office {

namespace {

/// Gives a font a table from glyph names to text. Fonts in PostScript know characters by glyph names only,
/// and the names of a subset font ("c1f") mean nothing; this table, which Microsoft's printer driver writes
/// too, is what distillers look at to keep text searchable.
constexpr std::string_view name_procedure = R"(/foliantNames { % font-name {code: UTF-16BE} -
  12 dict begin
  /texts exch def /name exch def
  /old name findfont def
  old /Encoding known {
    /names texts length dict def
    texts { exch old /Encoding get exch get exch names 3 1 roll put } forall
    /info old /FontInfo known { old /FontInfo get } { 0 dict } ifelse def
    /newinfo info length 1 add dict def
    info { newinfo 3 1 roll put } forall
    newinfo /GlyphNames2Unicode names put
    /new old length 1 add dict def
    old { 1 index /FID eq { pop pop } { new 3 1 roll put } ifelse } forall
    new /FontInfo newinfo put
    name new definefont pop
  } if
  end
} bind def
)";

/// poppler turns each character's advance by the matrix of the text before it shows a run, which takes longer than
/// to show it. Most text stands upright, and has its advances already.
constexpr std::string_view faster_show = R"(/foliantTurnedShow /xyshow2 load def
/xyshow2 {
  pdfTextMat aload pop pop pop 1 eq exch 0 eq and exch 0 eq and exch 1 eq and
  { xyshow } { foliantTurnedShow } ifelse
} bind def
)";

/// What plain text is shown with (see draw_pages).
constexpr std::string_view plain_text = R"(/foliantS { moveto show } bind def
/foliantX { moveto xshow } bind def
)";

std::string font_names(std::string_view pdf) {
    std::ostringstream text;
    text << name_procedure;
    for (const UnicodeMap& map : read_unicode_maps(pdf)) {
        // The name that poppler gives the font of that object.
        text << "/F" << map.object << '_' << map.generation << " <<\n";
        for (const auto& [code, utf16] : map.text)
            text << code << " <" << utf16 << ">\n";
        text << ">> foliantNames\n";
    }
    return text.str();
}

bool is_miter_limit(std::string_view number) {
    double limit = 0;
    const auto [end, problem] = std::from_chars(number.begin(), number.end(), limit);
    return problem == std::errc{} && end == number.end() && limit >= 1;
}

/// LibreOffice writes a limit beyond all numbers for some lines, and poppler prints that as a word that no
/// interpreter knows. Such a limit becomes the usual one.
std::string with_sound_miter_limits(std::string_view postscript) {
    constexpr std::string_view set_limit = " M\n";  // poppler's name for setmiterlimit
    std::string result;
    while (true) {
        const std::size_t end = postscript.find(set_limit);
        if (end == std::string_view::npos) break;
        const std::size_t begin = postscript.substr(0, end).rfind('\n') + 1;
        result += postscript.substr(0, begin);
        const std::string_view number = postscript.substr(begin, end - begin);
        result += is_miter_limit(number) ? number : "10";
        result += set_limit;
        postscript.remove_prefix(end + set_limit.size());
    }
    return result += postscript;
}

void insert_before(std::string& text, std::string_view line, const std::string& addition) {
    const std::size_t place = text.find(line);
    if (place == std::string::npos)
        throw PostScriptFailure("its PostScript has no line " + std::string(line.substr(1)));
    text.insert(place + 1, addition);
}

/// Puts the marks of each page before its drawing, in whose coordinates they are.
std::string with_page_marks(std::string_view postscript, const std::vector<std::string>& pages) {
    constexpr std::string_view line = "\n%%EndPageSetup\n";
    std::string result;
    for (const std::string& marks : pages) {
        const std::size_t end = postscript.find(line);
        if (end == std::string_view::npos) throw PostScriptFailure("its PostScript lacks pages");
        result += postscript.substr(0, end + line.size());
        result += marks;
        postscript.remove_prefix(end + line.size());
    }
    return result += postscript;
}

std::string with_marks_and_names(std::string_view postscript, std::string_view pdf, std::string_view title) {
    const PdfMarks marks = read_pdf_marks(pdf, title);
    std::string result = with_page_marks(postscript, marks.pages);
    insert_before(result, "\n%%EndSetup",
                  std::string(plain_text) + std::string(faster_show) + font_names(pdf) + marks.document);
    insert_before(result, "\n%%LanguageLevel", pages::title_comment(title));
    return result;
}

}  // namespace

std::string pdf_to_postscript(std::string_view pdf, std::string_view title) {
    const std::string postscript = with_sound_miter_limits(draw_pages(pdf));
    try {
        return with_marks_and_names(postscript, pdf, title);
    } catch (const PostScriptFailure&) {
        throw;
    } catch (const std::exception& failure) {
        throw PostScriptFailure(std::string("its contents cannot be read: ") + failure.what());
    }
}

}  // namespace foliant::hosts::office
