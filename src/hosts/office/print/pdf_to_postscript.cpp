#include "hosts/office/print/pdf_to_postscript.h"

#include <charconv>
#include <cstring>
#include <memory>
#include <poppler.h>
#include <sstream>
#include <sys/mman.h>
#include <unistd.h>

#include "hosts/office/print/pdf_marks.h"
#include "hosts/office/print/text_runs.h"
#include "hosts/office/print/unicode_maps.h"

namespace foliant::hosts::office {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
using DocumentPtr = std::unique_ptr<PopplerDocument, Unref>;
using PagePtr = std::unique_ptr<PopplerPage, Unref>;
using PsFilePtr = std::unique_ptr<PopplerPSFile, Unref>;

/// A file that exists in memory only.
class MemoryFile {
  public:
    MemoryFile() : descriptor_(memfd_create("postscript", MFD_CLOEXEC)) {
        if (descriptor_ < 0) throw PostScriptFailure(std::strerror(errno));
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(descriptor_); }

    /// Another descriptor of the same file, for somebody who will close it.
    int writer() const { return dup(descriptor_); }

    std::string text() const {
        std::string text(static_cast<std::size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
        std::size_t size = 0;
        while (size < text.size()) {
            const ssize_t read =
                pread(descriptor_, &text[size], text.size() - size, static_cast<off_t>(size));
            if (read <= 0) throw PostScriptFailure("its PostScript cannot be read back");
            size += static_cast<std::size_t>(read);
        }
        return text;
    }

  private:
    int descriptor_;
};

DocumentPtr open_document(std::string_view pdf) {
    GBytes* bytes = g_bytes_new_static(pdf.data(), pdf.size());
    GError* error = nullptr;
    DocumentPtr document(poppler_document_new_from_bytes(bytes, nullptr, &error));
    g_bytes_unref(bytes);
    if (document) return document;
    const std::string reason = error ? error->message : "unknown reason";
    g_clear_error(&error);
    throw PostScriptFailure("the PDF cannot be read: " + reason);
}

/// The document without its output intent, a colour profile that poppler would prepare afresh for every page,
/// which takes ten times as long as all the rest. Overwriting the key leaves every offset as it is.
std::string without_output_intent(std::string_view pdf) {
    constexpr std::string_view key = "/OutputIntents";
    constexpr std::string_view unknown_key = "/NutputIntents";
    std::string result(pdf);
    if (const std::size_t place = result.rfind(key); place != std::string::npos)
        result.replace(place, key.size(), unknown_key);
    return result;
}

std::string draw_pages(std::string_view pdf) {
    const std::string source = without_output_intent(pdf);
    const DocumentPtr document = open_document(source);
    const int pages = poppler_document_get_n_pages(document.get());
    const MemoryFile memory;
    {
        const PsFilePtr file(poppler_ps_file_new_fd(document.get(), memory.writer(), 0, pages));
        for (int index = 0; index < pages; ++index) {
            const PagePtr page(poppler_document_get_page(document.get(), index));
            if (!page) throw PostScriptFailure("page " + std::to_string(index + 1) + " cannot be read");
            poppler_page_render_to_ps(page.get(), file.get());
        }
    }
    return memory.text();
}

/// The title as a DSC comment: one line of at most 255 characters, in ASCII because a comment has no
/// encoding.
std::string title_comment(std::string_view title) {
    constexpr std::size_t longest = 255;
    std::string comment = "%%Title: ";
    for (const char character : title) {
        // Every character beyond ASCII becomes one question mark: the bytes that continue it are left out.
        if ((static_cast<unsigned char>(character) & 0xC0U) == 0x80U) continue;
        comment += character >= ' ' && character <= '~' ? character : '?';
    }
    return comment.substr(0, longest) + "\n";
}

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
    insert_before(result, "\n%%EndSetup", std::string(faster_show) + font_names(pdf) + marks.document);
    insert_before(result, "\n%%LanguageLevel", title_comment(title));
    return result;
}

}  // namespace

std::string pdf_to_postscript(std::string_view pdf, std::string_view title) {
    const std::string postscript = with_whole_text_runs(with_sound_miter_limits(draw_pages(pdf)));
    try {
        return with_marks_and_names(postscript, pdf, title);
    } catch (const PostScriptFailure&) {
        throw;
    } catch (const std::exception& failure) {
        throw PostScriptFailure(std::string("its contents cannot be read: ") + failure.what());
    }
}

}  // namespace foliant::hosts::office
