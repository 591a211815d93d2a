#include "hosts/office/print/pdf_marks.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFOutlineDocumentHelper.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QUtil.hh>

namespace foliant::hosts::office {

namespace {

/// Where there is no pdfmark, it takes its operands away. Pages are numbered from those that were out before
/// this job: a distiller may run several for one document.
constexpr std::string_view preparation =
    R"(/pdfmark where { pop } { userdict /pdfmark /cleartomark load put } ifelse
/foliantPagesBefore currentpagedevice /PageCount 2 copy known { get } { pop pop 0 } ifelse def
)";

/// The bytes of a string, in digits, on lines as short as the structuring conventions want them.
std::string text_of(const std::string& bytes) {
    constexpr std::size_t bytes_a_line = 100;
    std::string text = "<";
    for (std::size_t i = 0; i < bytes.size(); i += bytes_a_line)
        text += (i > 0 ? "\n" : "") + QUtil::hex_encode(bytes.substr(i, bytes_a_line));
    return text + ">";
}

/// " /Key <text>"; nothing when the dictionary has no text of that name.
std::string text_entry(QPDFObjectHandle dictionary, const std::string& key) {
    QPDFObjectHandle value = dictionary.getKey(key);
    return value.isString() ? " " + key + " " + text_of(value.getStringValue()) : "";
}

/// A list of numbers, which may have nulls in it; none for anything else.
std::optional<std::string> numbers_of(const std::vector<QPDFObjectHandle>& items) {
    std::string text;
    for (QPDFObjectHandle item : items) {
        if (!item.isNumber() && !item.isNull()) return std::nullopt;
        text += ' ' + item.unparse();
    }
    return text;
}

std::string numbers_entry(QPDFObjectHandle dictionary, const std::string& key) {
    QPDFObjectHandle value = dictionary.getKey(key);
    if (!value.isArray()) return "";
    const auto numbers = numbers_of(value.getArrayAsVector());
    return numbers ? " " + key + " [" + *numbers + " ]" : "";
}

/// The ways to show a page that a destination may name.
bool is_view(const std::string& name) {
    static constexpr std::string_view views[]{"/XYZ",  "/Fit",  "/FitH",  "/FitV",
                                              "/FitR", "/FitB", "/FitBH", "/FitBV"};
    return std::find(std::begin(views), std::end(views), name) != std::end(views);
}

class MarksOfDocument {
  public:
    explicit MarksOfDocument(std::string_view pdf) {
        document_.setSuppressWarnings(true);
        document_.processMemoryFile("document", pdf.data(), pdf.size());
        pages_ = QPDFPageDocumentHelper(document_).getAllPages();
        for (std::size_t i = 0; i < pages_.size(); ++i)
            page_numbers_[pages_[i].getObjectHandle().getObjGen()] = i + 1;
    }

    std::string information(std::string_view title) {
        QPDFObjectHandle info = document_.getTrailer().getKey("/Info");
        std::string entries;
        if (info.isDictionary()) {
            for (const char* key : {"/Title", "/Author", "/Subject", "/Keywords", "/Creator"})
                entries += text_entry(info, key);
        }
        if (entries.find("/Title <") == std::string::npos)
            entries += " /Title " + text_of(QUtil::utf8_to_utf16(std::string(title)));
        return "[" + entries + " /DOCINFO pdfmark\n";
    }

    std::string language() {
        const std::string entry = text_entry(document_.getRoot(), "/Lang");
        return entry.empty() ? "" : "[ {Catalog} <<" + entry + " >> /PUT pdfmark\n";
    }

    std::string outline() {
        return outline_items(QPDFOutlineDocumentHelper(document_).getTopLevelOutlines());
    }

    std::vector<std::string> links() {
        std::vector<std::string> pages;
        for (QPDFPageObjectHelper& page : pages_) {
            std::string& links = pages.emplace_back();
            for (QPDFAnnotationObjectHelper& annotation : page.getAnnotations("/Link"))
                links += link(annotation.getObjectHandle());
        }
        return pages;
    }

  private:
    /// " /Page number /View [...]"; nothing for a place that is not in the document.
    std::string place(QPDFObjectHandle destination) {
        if (!destination.isArray() || destination.getArrayNItems() < 2) return "";
        std::vector<QPDFObjectHandle> items = destination.getArrayAsVector();
        const auto page = page_numbers_.find(items[0].getObjGen());
        if (page == page_numbers_.end() || !items[1].isName() || !is_view(items[1].getName())) return "";
        const auto numbers = numbers_of({items.begin() + 2, items.end()});
        if (!numbers) return "";
        return " /Page foliantPagesBefore " + std::to_string(page->second) + " add /View [" +
               items[1].getName() + *numbers + " ]";
    }

    /// Every item says how many are directly below it, a negative number when they are folded away.
    std::string outline_items(std::vector<QPDFOutlineObjectHelper> items) {
        std::string text;
        for (QPDFOutlineObjectHelper& item : items) {
            std::vector<QPDFOutlineObjectHelper> kids = item.getKids();
            text += "[" + text_entry(item.getObjectHandle(), "/Title") + place(item.getDest());
            if (!kids.empty())
                text += (item.getCount() < 0 ? " /Count -" : " /Count ") + std::to_string(kids.size());
            text += " /OUT pdfmark\n" + outline_items(std::move(kids));
        }
        return text;
    }

    std::string target(QPDFObjectHandle link) {
        QPDFObjectHandle action = link.getKey("/A");
        if (!action.isDictionary()) return place(link.getKey("/Dest"));
        if (action.getKey("/S").isNameAndEquals("/GoTo")) return place(action.getKey("/D"));
        const std::string address = text_entry(action, "/URI");
        return address.empty() ? "" : " /Action << /Subtype /URI" + address + " >>";
    }

    std::string link(QPDFObjectHandle link) {
        const std::string place = numbers_entry(link, "/Rect");
        const std::string leads_to = target(link);
        if (place.empty() || leads_to.empty()) return "";
        return "[" + place + numbers_entry(link, "/Border") + text_entry(link, "/Contents") + leads_to +
               " /Subtype /Link /ANN pdfmark\n";
    }

    QPDF document_;
    std::vector<QPDFPageObjectHelper> pages_;
    std::map<QPDFObjGen, std::size_t> page_numbers_;
};

}  // namespace

PdfMarks read_pdf_marks(std::string_view pdf, std::string_view title) {
    MarksOfDocument marks(pdf);
    return {std::string(preparation) + marks.information(title) + marks.language() + marks.outline(),
            marks.links()};
}

}  // namespace foliant::hosts::office
