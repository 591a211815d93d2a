#include "hosts/office/unicode_maps.h"

#include <qpdf/QPDF.hh>
#include <regex>

namespace foliant::hosts::office {

namespace {

std::string stream_text(QPDFObjectHandle stream) {
    const auto data = stream.getStreamData(qpdf_dl_generalized);
    return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
}

/// Reads the single characters of a map ("<1F> <00660069>"); LibreOffice writes no ranges.
std::map<int, std::string> read_characters(const std::string& map) {
    static const std::regex entry("<([0-9A-Fa-f]{2})>\\s*<((?:[0-9A-Fa-f]{4})+)>");
    const std::size_t start = map.find("beginbfchar");
    if (start == std::string::npos) return {};
    const auto from = map.begin() + static_cast<std::ptrdiff_t>(start);
    std::map<int, std::string> text;
    for (std::sregex_iterator each(from, map.end(), entry), end; each != end; ++each)
        text[std::stoi((*each)[1].str(), nullptr, 16)] = (*each)[2].str();
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
