#include "hosts/office/print/unicode_maps.h"

#include <charconv>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <set>
#include <sstream>

namespace foliant::hosts::office {

namespace {

std::string stream_text(QPDFObjectHandle stream) {
    const auto data = stream.getStreamData(qpdf_dl_generalized);
    return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
}

/// The digits of "<1F>"; empty for anything else.
std::string_view digits_of(std::string_view word) {
    if (!word.starts_with('<') || !word.ends_with('>')) return {};
    return word.substr(1, word.size() - 2);
}

/// Reads the single characters of a map, lines such as "<1F> <00660069>"; LibreOffice writes no ranges.
std::map<int, std::string> read_characters(const std::string& map) {
    const std::size_t start = map.find("beginbfchar");
    if (start == std::string::npos) return {};
    std::istringstream lines(map.substr(start));
    std::map<int, std::string> text;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string code;
        std::string meaning;
        if (!(words >> code >> meaning)) continue;
        const std::string_view digits = digits_of(code);
        int number = 0;
        const auto [end, status] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
        if (digits.size() == 2 && status == std::errc() && end == digits.data() + digits.size())
            text[number] = digits_of(meaning);
    }
    return text;
}

/// Finds the fonts that pages draw with. Looking at every object of a document would take many times as long:
/// most belong to its structure.
class FontSearch {
  public:
    void look_into(QPDFObjectHandle resources) {
        if (!resources.isDictionary() || is_known(resources)) return;
        for (auto& [name, font] : entries(resources, "/Font"))
            add(font);
        for (const char* kind : {"/XObject", "/Pattern"})
            for (auto& [name, drawing] : entries(resources, kind))
                if (drawing.isStream() && !is_known(drawing))
                    look_into(drawing.getDict().getKey("/Resources"));
    }

    std::vector<UnicodeMap> take_maps() { return std::move(maps_); }

  private:
    static std::map<std::string, QPDFObjectHandle> entries(QPDFObjectHandle resources, const char* kind) {
        QPDFObjectHandle dictionary = resources.getKey(kind);
        if (!dictionary.isDictionary()) return {};
        return dictionary.getDictAsMap();
    }

    bool is_known(QPDFObjectHandle object) {
        return object.isIndirect() && !known_.insert(object.getObjGen()).second;
    }

    void add(QPDFObjectHandle font) {
        if (!font.isDictionary() || is_known(font)) return;
        QPDFObjectHandle map = font.getKey("/ToUnicode");
        if (!map.isStream()) return;
        maps_.push_back({font.getObjectID(), font.getGeneration(), read_characters(stream_text(map))});
    }

    std::set<QPDFObjGen> known_;
    std::vector<UnicodeMap> maps_;
};

}  // namespace

std::vector<UnicodeMap> read_unicode_maps(std::string_view pdf) {
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("document", pdf.data(), pdf.size());
    FontSearch search;
    for (QPDFPageObjectHelper& page : QPDFPageDocumentHelper(document).getAllPages())
        search.look_into(page.getAttribute("/Resources", false));
    return search.take_maps();
}

}  // namespace foliant::hosts::office
