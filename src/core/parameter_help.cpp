#include "core/parameter_help.h"

#include <algorithm>
#include <array>

namespace foliant::core {
namespace {

struct Entry {
    std::string_view name;
    ParameterRole role;
    std::string_view help;
};

using enum ParameterRole;

constexpr std::array entries{
    Entry{"strPrinter", plain, "name of the printer"},
    Entry{"strOpenPassword", password, "password that opens the PDF"},
    Entry{"blnDoubleSpace", plain, "put an empty line after each line"},
    Entry{"strDirectory", folder, "folder of the PDFs"},
    Entry{"strFiles", plain, "which files of the folder, by pattern"},
    Entry{"blnSilent", plain, "print without any dialog"},
    Entry{"lngFirstPageNo", plain, "first page, counted from 1; 0 is the first of the document"},
    Entry{"lngLastPageNo", plain, "last page, counted from 1; 0 is the last of the document"},
    Entry{"strBookmark", plain, "bookmark to go to"},
    Entry{"lngGoToPageNo", plain, "page to go to, counted from 1"},
    Entry{"lngReadType", plain, "what is read aloud: none, page or document"},
    Entry{"varPDFFiles", file_list, "PDFs, in the order in which they are merged"},
    Entry{"strImageFile", input_file, "image to convert"},
    Entry{"strTitle", plain, "title in the document information"},
    Entry{"strAuthor", plain, "author in the document information"},
    Entry{"strSubject", plain, "subject in the document information"},
    Entry{"strKeywords", plain, "keywords in the document information"},
    Entry{"varImageFiles", file_list, "images, one page each"},
    Entry{"strExcelWorkbook", input_file, "workbook to convert"},
    Entry{"varExcelWorksheet", plain, "worksheet, by name or number"},
    Entry{"varExcelWorksheets", list, "worksheets, by name or number"},
    Entry{"strRange", plain, "range of cells, such as A1:F40 or A:F, or a name that the workbook defines"},
    Entry{"varRanges", parallel_list, "range of cells for each worksheet"},
    Entry{"strPassword", password, "password that opens the document"},
    Entry{"strWriteResPassword", password, "password that allows changes to the workbook"},
    Entry{"strWritePassword", password, "password that allows changes to the document"},
    Entry{"blnUseGrid", plain, "print the grid lines"},
    Entry{"blnLandscape", plain, "landscape; otherwise portrait"},
    Entry{"varLandscape", parallel_flags, "landscape or not, for each worksheet: true or false"},
    Entry{"strHeader", plain, "text of the page header"},
    Entry{"lngHeaderAlignment", plain, "where the header stands: left, center or right"},
    Entry{"strFooter", plain, "text of the page footer"},
    Entry{"lngFooterAlignment", plain, "where the footer stands: left, center or right"},
    Entry{"dblTopMargin", plain, "top margin"},
    Entry{"dblLeftMargin", plain, "left margin"},
    Entry{"dblRightMargin", plain, "right margin"},
    Entry{"dblBottomMargin", plain, "bottom margin"},
    Entry{"dblHeaderMargin", plain, "margin of the header"},
    Entry{"dblFooterMargin", plain, "margin of the footer"},
    Entry{"lngFirstPageNumber", plain, "number of the first page"},
    Entry{"varFirstPageNumber", parallel_list, "number of the first page, for each worksheet"},
    Entry{"strDistiller", plain, "PDF printer to print to; blank means the one of this machine"},
    Entry{"blnShowWindow", plain, "show Distiller's window"},
    Entry{"blnSpoolJobs", plain, "have Distiller queue the job"},
    Entry{"strJobOptionsFile", input_file, "Distiller's job-options file; blank means its current settings"},
    Entry{"blnApplySecurity", plain, "have Distiller apply its security settings"},
    Entry{"blnCloseAcrobat", plain, "close the Acrobat window that shows the new PDF"},
    Entry{"strText", plain, "text to find"},
    Entry{"blnCaseSensitive", plain, "upper and lower case differ"},
    Entry{"blnWholeWordsOnly", plain, "find whole words only"},
    Entry{"strURL", plain, "address of the web page"},
    Entry{"blnHideAcrobat", plain, "keep Acrobat out of sight"},
    Entry{"intSecsToWaitForPDF", plain, "seconds to wait for the PDF, 32 at most"},
    Entry{"strVisioFile", input_file, "Visio drawing to convert"},
    Entry{"strSourceFile", input_file, "document to convert"},
    Entry{"varBookmarkTitles", list, "texts to find, which become the bookmarks' titles"},
    Entry{"strBookmarkTitle", plain, "text to find, which becomes the bookmark's title"},
    Entry{"blnReset", plain, "search from the beginning of the document"},
    Entry{"strWordDocument", input_file, "Word document to convert"},
    Entry{"strPages", plain, "pages, such as 1-3,5; blank means all"},
    Entry{"blnPageNumberInFooter", plain, "number the pages in the footer"},
    Entry{"blnPageNumberInHeader", plain, "number the pages in the header"},
    Entry{"lngPageNumberAlignment", plain, "where the page number stands: left, center or right"},
    Entry{"blnFirstPage", plain, "number the first page as well"},
    Entry{"strDWGFile", input_file, "drawing to convert"},
    Entry{"varLayout", plain, "layout, by name or number"},
    Entry{"varLayouts", list, "layouts, by name or number"},
    Entry{"strPDFWriter", plain, "the older PDF printer"},
    Entry{"strDatabase", input_file, "Access database"},
    Entry{"strReportName", plain, "name of the report"},
    Entry{"varReportNames", list, "names of the reports"},
    Entry{"strFilter", plain, "name of a query that filters the report"},
    Entry{"strWhereCondition", plain, "condition that filters the report"},
    Entry{"strCrystalReport", input_file, "Crystal report to convert"},
    Entry{"strFont", plain, "font name"},
    Entry{"blnFontBold", plain, "bold"},
    Entry{"intFontSize", plain, "font size in points"},
    Entry{"lngFontColor", plain, "font colour, as Word numbers it"},
    Entry{"blnFontItalic", plain, "italic"},
    Entry{"blnFontUnderline", plain, "underlined"},
    Entry{"sngTopMargin", plain, "top margin"},
    Entry{"sngLeftMargin", plain, "left margin"},
    Entry{"sngRightMargin", plain, "right margin"},
    Entry{"sngBottomMargin", plain, "bottom margin"},
    Entry{"strPPDocument", input_file, "presentation to convert"},
    Entry{"lngStartSlide", plain, "first slide, counted from 1; -1 is the first of the presentation"},
    Entry{"lngEndSlide", plain, "last slide, counted from 1; -1 is the last of the presentation"},
    Entry{"blnHorizontalOrientation", plain, "landscape; otherwise portrait"},
    Entry{"varPSFiles", file_list, "PostScript files, in order; those that do not exist are skipped"},
    Entry{"inet", plain, "Internet Transfer control"},
    Entry{"strRemoteHost", plain, "name of the FTP server"},
    Entry{"strRemoteDirectory", plain, "folder on the server"},
    Entry{"strRemoteFile", plain, "name of the file on the server"},
    Entry{"strUsername", plain, "user name on the server"},
    Entry{"strUserPassword", password, "password on the server"},
    Entry{"strFolder", folder, "folder for temporary files; it is made when its parent exists"},
};

/// The files whose role depends on the member.
Entry file_entry(const Member& member, const Parameter& parameter) noexcept {
    const bool creates = member.name.starts_with("CreatePDF");
    if (parameter.name == "strPDFFile") {
        return creates ? Entry{"strPDFFile", output_file, "PDF to make"}
                       : Entry{"strPDFFile", input_file, "PDF to work on"};
    }
    if (parameter.name == "strPSFile") {
        return creates ? Entry{"strPSFile", input_file, "PostScript file to convert"}
                       : Entry{"strPSFile", output_file, "PostScript file to make"};
    }
    if (parameter.name == "strTextfile") {
        return member.name == "CreateTextfileFromPDF"
                   ? Entry{"strTextfile", output_file, "text file to make"}
                   : Entry{"strTextfile", input_file, "text file to convert"};
    }
    if (parameter.name == "strLocalFile") {
        return member.name == "DownloadFile" ? Entry{"strLocalFile", output_file, "file to make"}
                                             : Entry{"strLocalFile", input_file, "file to send"};
    }
    return {parameter.name, plain, ""};
}

Entry entry_for(const Member& member, const Parameter& parameter) noexcept {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& entry) { return entry.name == parameter.name; });
    return found == entries.end() ? file_entry(member, parameter) : *found;
}

}  // namespace

ParameterRole parameter_role(const Member& member, const Parameter& parameter) noexcept {
    return entry_for(member, parameter).role;
}

std::string_view parameter_help(const Member& member, const Parameter& parameter) noexcept {
    return entry_for(member, parameter).help;
}

}  // namespace foliant::core
