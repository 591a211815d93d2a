#include "hosts/office/pdfmaker/document_kind.h"

#include <array>
#include <optional>

#include "hosts/office/draw/drawing_kind.h"
#include "hosts/office/draw/visio_error.h"
#include "hosts/office/engine/content.h"
#include "hosts/office/engine/detected_kind.h"
#include "hosts/office/excel/excel_error.h"
#include "hosts/office/excel/workbook_kind.h"
#include "hosts/office/powerpoint/powerpoint_error.h"
#include "hosts/office/powerpoint/presentation_kind.h"
#include "hosts/office/word/content_kind.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

namespace {

constexpr Application texts = pdfmaker_with(microsoft_word);
constexpr Application workbooks = pdfmaker_with(microsoft_excel);
constexpr Application presentations = pdfmaker_with(microsoft_powerpoint);
constexpr Application drawings = pdfmaker_with(microsoft_visio);

struct Reader {
    ImportFilter (*choose)(DocumentFile&, const Office&);
    const Application& application;
    std::string_view service;  ///< what LibreOffice makes of the documents
};

const Reader text_reader{import_filter, texts, "com.sun.star.text.TextDocument"};

/// What only looks at a document may be asked as what also prepares it.
template <ImportFilter (*look)(const DocumentFile&, const Office&)>
ImportFilter chosen_by(DocumentFile& file, const Office& office) {
    return look(file, office);
}

const std::array others{
    Reader{chosen_by<drawing_filter>, drawings, "com.sun.star.drawing.DrawingDocument"},
    Reader{chosen_by<presentation_filter>, presentations, "com.sun.star.presentation.PresentationDocument"},
    Reader{chosen_by<workbook_filter>, workbooks, "com.sun.star.sheet.SpreadsheetDocument"}};

/// How an application reads a document; nothing when it is none of its own.
std::optional<ImportFilter> filter_of(const Reader& reader, DocumentFile& file, const Office& office) {
    try {
        ImportFilter filter = reader.choose(file, office);
        filter.application = &reader.application;
        return filter;
    } catch (const automation::Error&) {
        return {};
    }
}

/// What no application has for its own: pictures and drawings of many programs.
std::optional<ImportFilter> detected_filter(const DocumentFile& file, const Office& office) {
    const auto kind = detect_kind(file, office);
    if (!kind) return {};
    for (const Reader& reader : others)
        if (kind->service == reader.service) return ImportFilter{kind->filter, "", &reader.application};
    return {};
}

/// Damage and encryption are said here: to the applications, what they cannot open is none of their own.
void require_readable(const DocumentFile& file, std::string_view start, const Office& office) {
    if (is_package(start)) package_content(file, office, acrobat_pdfmaker);
    if (is_compound_file(start)) {
        const Streams streams = compound_file_streams(file, office, acrobat_pdfmaker);
        if (has_stream(streams, "EncryptedPackage") || is_encrypted_presentation(streams))
            throw encrypted(file.path, acrobat_pdfmaker);
    }
    if (is_cut_short(file, start))
        throw damaged(file.path, "it begins like a Visio drawing and breaks off", acrobat_pdfmaker);
    if (start.starts_with("%PDF-")) throw not_a_document(file.path, "it is a PDF already", acrobat_pdfmaker);
}

bool is_plain_text(std::string_view start, const DocumentFile& file) {
    const std::string extension = extension_of(file.path);
    return is_text(start) && !skip_start(start).starts_with('<') &&
           (extension == ".txt" || extension == ".log" || extension == ".md");
}

}  // namespace

const Application acrobat_pdfmaker = texts;

ImportFilter document_filter(DocumentFile& file, const Office& office) {
    const std::string bytes = sample(file, acrobat_pdfmaker);
    require_readable(file, bytes, office);
    if (!is_plain_text(bytes, file)) {
        for (const Reader& reader : others)
            if (auto filter = filter_of(reader, file, office)) return *filter;
        if (auto filter = detected_filter(file, office)) return *filter;
    }
    if (auto filter = filter_of(text_reader, file, office)) return *filter;
    throw not_a_document(file.path,
                         is_text(bytes) ? "it holds text of another kind than its name says"
                                        : "its content is of no known kind",
                         acrobat_pdfmaker);
}

}  // namespace foliant::hosts::office
