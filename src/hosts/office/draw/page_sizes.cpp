#include "hosts/office/draw/page_sizes.h"

#include <cmath>
#include <librevenge-stream/librevenge-stream.h>
#include <librevenge/librevenge.h>
#include <libvisio/libvisio.h>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace foliant::hosts::office {

namespace {

using Properties = librevenge::RVNGPropertyList;
using Text = librevenge::RVNGString;

/// What the library that LibreOffice reads drawings with tells of a drawing, of which only the pages count:
/// LibreOffice gives all of them the size that holds the largest.
class PageSizes : public librevenge::RVNGDrawingInterface {
  public:
    std::vector<PageSize> sizes;

    void startPage(const Properties& page) override {
        sizes.push_back({length(page, "svg:width"), length(page, "svg:height")});
    }

    void startDocument(const Properties&) override {}
    void endDocument() override {}
    void setDocumentMetaData(const Properties&) override {}
    void defineEmbeddedFont(const Properties&) override {}
    void endPage() override {}
    void startMasterPage(const Properties&) override {}
    void endMasterPage() override {}
    void setStyle(const Properties&) override {}
    void startLayer(const Properties&) override {}
    void endLayer() override {}
    void startEmbeddedGraphics(const Properties&) override {}
    void endEmbeddedGraphics() override {}
    void openGroup(const Properties&) override {}
    void closeGroup() override {}
    void drawRectangle(const Properties&) override {}
    void drawEllipse(const Properties&) override {}
    void drawPolygon(const Properties&) override {}
    void drawPolyline(const Properties&) override {}
    void drawPath(const Properties&) override {}
    void drawGraphicObject(const Properties&) override {}
    void drawConnector(const Properties&) override {}
    void startTextObject(const Properties&) override {}
    void endTextObject() override {}
    void startTableObject(const Properties&) override {}
    void openTableRow(const Properties&) override {}
    void closeTableRow() override {}
    void openTableCell(const Properties&) override {}
    void closeTableCell() override {}
    void insertCoveredTableCell(const Properties&) override {}
    void endTableObject() override {}
    void insertTab() override {}
    void insertSpace() override {}
    void insertText(const Text&) override {}
    void insertLineBreak() override {}
    void insertField(const Properties&) override {}
    void openOrderedListLevel(const Properties&) override {}
    void openUnorderedListLevel(const Properties&) override {}
    void closeOrderedListLevel() override {}
    void closeUnorderedListLevel() override {}
    void openListElement(const Properties&) override {}
    void closeListElement() override {}
    void defineParagraphStyle(const Properties&) override {}
    void openParagraph(const Properties&) override {}
    void closeParagraph() override {}
    void defineCharacterStyle(const Properties&) override {}
    void openSpan(const Properties&) override {}
    void closeSpan() override {}
    void openLink(const Properties&) override {}
    void closeLink() override {}

  private:
    /// The library tells inches.
    static double length(const Properties& page, const char* name) {
        constexpr double points_an_inch = 72;
        const librevenge::RVNGProperty* property = page[name];
        return property == nullptr ? 0 : property->getDouble() * points_an_inch;
    }
};

bool is_possible(const PageSize& size) {
    constexpr double largest = 14400;  // points, that a page of a PDF may have
    return size.width >= 1 && size.height >= 1 && size.width <= largest && size.height <= largest;
}

/// Whether two lengths are the same, within what LibreOffice makes of them by counting in hundredths of a millimetre.
bool are_close(double one, double other) {
    return std::abs(one - other) < 0.1;
}

/// Cuts a page to its upper left corner. Whether there was anything to cut.
bool cut(QPDFPageObjectHelper page, const PageSize& size) {
    const QPDFObjectHandle::Rectangle box = page.getMediaBox().getArrayAsRectangle();
    const PageSize now{box.urx - box.llx, box.ury - box.lly};
    if (!is_possible(size) || (are_close(now.width, size.width) && are_close(now.height, size.height)))
        return false;
    page.getObjectHandle().replaceKey(
        "/MediaBox",
        QPDFObjectHandle::newFromRectangle({box.llx, box.ury - size.height, box.llx + size.width, box.ury}));
    return true;
}

}  // namespace

std::optional<std::vector<PageSize>> visio_page_sizes(std::string_view drawing) {
    librevenge::RVNGStringStream stream(reinterpret_cast<const unsigned char*>(drawing.data()),
                                        static_cast<unsigned>(drawing.size()));
    PageSizes pages;
    if (!libvisio::VisioDocument::isSupported(&stream) || !libvisio::VisioDocument::parse(&stream, &pages))
        return std::nullopt;
    return pages.sizes;
}

std::string with_page_sizes(std::string pdf, const std::vector<PageSize>& sizes) {
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("document", pdf.data(), pdf.size());
    const std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(document).getAllPages();
    if (pages.size() != sizes.size()) return pdf;
    bool is_changed = false;
    for (std::size_t i = 0; i < pages.size(); ++i)
        is_changed = cut(pages[i], sizes[i]) || is_changed;
    if (!is_changed) return pdf;
    QPDFWriter writer(document);
    writer.setOutputMemory();
    writer.write();
    const std::shared_ptr<Buffer> bytes = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

}  // namespace foliant::hosts::office
