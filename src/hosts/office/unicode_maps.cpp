#include "hosts/office/unicode_maps.h"

#include <charconv>
#include <qpdf/QPDF.hh>
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

}  // namespace

std::vector<UnicodeMap> read_unicode_maps(std::string_view pdf) {
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("document", pdf.data(), pdf.size());
    std::vector<UnicodeMap> maps;
    for (QPDFObjectHandle object : document.getAllObjects()) {
        if (!object.isDictionaryOfType("/Font")) continue;
        QPDFObjectHandle map = object.getKey("/ToUnicode");
        if (!map.isStream()) continue;
        maps.push_back({object.getObjectID(), object.getGeneration(), read_characters(stream_text(map))});
    }
    return maps;
}

}  // namespace foliant::hosts::office
