#include "hosts/office/excel/workbook_kind.h"

#include <algorithm>

#include "hosts/office/engine/content.h"
#include "hosts/office/excel/excel_error.h"

namespace foliant::hosts::office {

namespace {

automation::Error no_workbook(const DocumentFile& file, std::string_view reason) {
    return not_a_document(file.path, reason, microsoft_excel);
}

ImportFilter package_filter(const DocumentFile& file, const Office& office) {
    const PackageContent content = package_content(file, office, microsoft_excel);
    const auto has = [&](const char* part) { return content.types.find(part) != std::string::npos; };
    if (has("sheet.binary.macroEnabled.main")) return {"Calc MS Excel 2007 Binary", ""};
    for (const char* main_part : {"spreadsheetml.sheet.main+xml", "spreadsheetml.template.main+xml",
                                  "ms-excel.sheet.macroEnabled", "ms-excel.template.macroEnabled"})
        if (has(main_part)) return {"Calc MS Excel 2007 XML", ""};
    if (content.mimetype.starts_with("application/vnd.oasis.opendocument.spreadsheet")) return {"calc8", ""};
    throw no_workbook(file, "it is a zip package without an Excel or OpenDocument workbook in it");
}

ImportFilter compound_file_filter(const DocumentFile& file, const Office& office) {
    const Streams streams = compound_file_streams(file, office, microsoft_excel);
    if (has_stream(streams, "EncryptedPackage")) return {"Calc MS Excel 2007 XML", ""};
    if (has_stream(streams, "Workbook")) return {"MS Excel 97", ""};
    if (has_stream(streams, "Book")) return {"MS Excel 95", ""};
    throw no_workbook(file, "it is a compound file without an Excel workbook in it");
}

constexpr const char* text_filter_name = "Text - txt - csv (StarCalc)";

/// The sign that separates the values of a text.
char separator_of(std::string_view text) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    char best = ',';
    for (const char sign : {';', '\t'})
        if (std::ranges::count(line, sign) > std::ranges::count(line, best)) best = sign;
    return best;
}

/// LibreOffice's options for values in text: separator, quotation mark, character set, first line, columns, language.
ImportFilter text_filter(std::string_view text) {
    constexpr const char* utf8 = "76";
    constexpr const char* windows_western = "1";
    constexpr const char* utf16 = "65535";
    const char* characters = is_utf16(text) ? utf16 : is_utf8(text) ? utf8 : windows_western;
    const char separator = is_utf16(text) ? '\t' : separator_of(text);
    // The last two: quoted values are read like others, and values stay as they are written; without a word on it
    // times and truths would be written in the form of the country.
    return {text_filter_name,
            std::to_string(int{separator}) + ",34," + std::string(characters) + ",1,,0,false,false"};
}

}  // namespace

ImportFilter workbook_filter(const DocumentFile& file, const Office& office) {
    const std::string bytes = sample(file, microsoft_excel);
    const std::string_view start(bytes);
    if (is_package(start)) return package_filter(file, office);
    if (is_compound_file(start)) return compound_file_filter(file, office);
    // Excel 2 to 4: a file that begins with the first record, of those versions.
    using namespace std::string_view_literals;
    for (const std::string_view mark : {"\x09\x00\x04\x00"sv, "\x09\x02\x06\x00"sv, "\x09\x04\x06\x00"sv})
        if (start.starts_with(mark)) return {"MS Excel 4.0", ""};
    if (skip_start(start).starts_with("<?xml")) {
        if (start.find("urn:schemas-microsoft-com:office:spreadsheet") != std::string_view::npos)
            return {"MS Excel 2003 XML", ""};
        if (start.find("opendocument.spreadsheet") != std::string_view::npos)
            return {"OpenDocument Spreadsheet Flat XML", ""};
        throw no_workbook(file, "it is an XML file of another kind");
    }
    if (start.starts_with("%PDF-")) throw no_workbook(file, "it is a PDF file");
    if (!is_text(start)) throw no_workbook(file, "its content is of no known kind");
    const std::string extension = extension_of(file.path);
    if (extension == ".csv" || extension == ".txt" || extension == ".tsv") return text_filter(start);
    throw no_workbook(file, "it holds plain text, which its name does not say");
}

bool reads_text(const ImportFilter& filter) {
    return filter.name == text_filter_name;
}

}  // namespace foliant::hosts::office
