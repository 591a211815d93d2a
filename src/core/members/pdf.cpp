#include "acrobat/bookmarks.h"
#include "acrobat/find.h"
#include "acrobat/images.h"
#include "acrobat/links.h"
#include "acrobat/merge.h"
#include "acrobat/page_count.h"
#include "acrobat/password.h"
#include "acrobat/print.h"
#include "acrobat/text.h"
#include "acrobat/view.h"
#include "core/build_pdf.h"

namespace foliant::core {
namespace {

acrobat::SearchOptions search_options(bool blnCaseSensitive, bool blnWholeWordsOnly, bool blnReset) {
    return {.case_sensitive = blnCaseSensitive,
            .whole_words_only = blnWholeWordsOnly,
            .from_first_page = blnReset};
}

}  // namespace

std::int32_t BuildPDF::GetNumPagesPDF(std::string& strPDFFile, std::string& strOpenPassword) {
    return acrobat::GetNumPagesPDF(session_, {.path = strPDFFile, .password = strOpenPassword});
}

void BuildPDF::CreatePDFfromMultiPDFinDir(std::string& strPDFFile, std::string& strDirectory,
                                          std::string& strFiles) {
    acrobat::CreatePDFfromMultiPDFinDir(session_, strPDFFile, strDirectory, strFiles);
}

void BuildPDF::CreatePDFfromMultiPDF(std::string& strPDFFile, automation::Value& varPDFFiles) {
    acrobat::CreatePDFfromMultiPDF(session_, strPDFFile, varPDFFiles);
}

void BuildPDF::CreatePDFfromImageFile(std::string& strPDFFile, std::string& strImageFile,
                                      std::string& strTitle, std::string& strAuthor, std::string& strSubject,
                                      std::string& strKeywords) {
    acrobat::CreatePDFfromImageFile(
        session_, strPDFFile, strImageFile,
        {.title = strTitle, .author = strAuthor, .subject = strSubject, .keywords = strKeywords});
}

void BuildPDF::CreatePDFfromMultiImage(std::string& strPDFFile, automation::Value& varImageFiles) {
    acrobat::CreatePDFfromMultiImage(session_, strPDFFile, varImageFiles);
}

void BuildPDF::CreateTextfileFromPDF(std::string& strPDFFile, std::string& strTextfile, bool& blnDoubleSpace,
                                     std::string& strOpenPassword) {
    acrobat::CreateTextfileFromPDF(session_, {.path = strPDFFile, .password = strOpenPassword}, strTextfile,
                                   blnDoubleSpace);
}

void BuildPDF::FindTextInPDF(std::string& strPDFFile, std::string& strText, bool& blnCaseSensitive,
                             bool& blnWholeWordsOnly, std::string& strOpenPassword) {
    acrobat::FindTextInPDF(session_, {.path = strPDFFile, .password = strOpenPassword}, strText,
                           blnCaseSensitive, blnWholeWordsOnly);
}

void BuildPDF::PrintPDF(std::string& strPDFFile, std::string& strPrinter, bool& blnSilent,
                        std::int32_t& lngFirstPageNo, std::int32_t& lngLastPageNo,
                        std::string& strOpenPassword) {
    acrobat::PrintPDF(session_, {.path = strPDFFile, .password = strOpenPassword},
                      {.printer = strPrinter, .silent = blnSilent},
                      {.first = lngFirstPageNo, .last = lngLastPageNo});
}

void BuildPDF::PrintPDFinDir(std::string& strDirectory, std::string& strFiles, std::string& strPrinter,
                             bool& blnSilent) {
    acrobat::PrintPDFinDir(session_, strDirectory, strFiles, {.printer = strPrinter, .silent = blnSilent});
}

void BuildPDF::OpenPDF(std::string& strPDFFile, std::string& strBookmark, std::int32_t& lngGoToPageNo,
                       ReadType lngReadType, std::string& strOpenPassword) {
    acrobat::OpenPDF(session_, {.path = strPDFFile, .password = strOpenPassword},
                     {.bookmark = strBookmark,
                      .page = lngGoToPageNo,
                      .read_aloud = static_cast<std::int32_t>(lngReadType)});
}

void BuildPDF::SetOpenPassword(std::string& strPDFFile, std::string& strOpenPassword) {
    acrobat::SetOpenPassword(session_, strPDFFile, strOpenPassword);
}

void BuildPDF::CreateBookmarksInPDF(std::string& strPDFFile, automation::Value& varBookmarkTitles,
                                    bool& blnCaseSensitive, bool& blnWholeWordsOnly, bool& blnReset,
                                    std::string& strOpenPassword) {
    acrobat::CreateBookmarksInPDF(session_, {.path = strPDFFile, .password = strOpenPassword},
                                  varBookmarkTitles,
                                  search_options(blnCaseSensitive, blnWholeWordsOnly, blnReset));
}

void BuildPDF::CreateBookmarkInPDF(std::string& strPDFFile, std::string& strBookmarkTitle,
                                   bool& blnCaseSensitive, bool& blnWholeWordsOnly, bool& blnReset,
                                   std::string& strOpenPassword) {
    acrobat::CreateBookmarkInPDF(session_, {.path = strPDFFile, .password = strOpenPassword},
                                 strBookmarkTitle,
                                 search_options(blnCaseSensitive, blnWholeWordsOnly, blnReset));
}

void BuildPDF::CreateLinksInPDF(std::string& strPDFFile, std::string& strOpenPassword) {
    acrobat::CreateLinksInPDF(session_, {.path = strPDFFile, .password = strOpenPassword});
}

}  // namespace foliant::core
