#include "hosts/acrobat/structure/insert_pages.h"

#include <iterator>
#include <utility>

#include "hosts/acrobat/structure/bookmarks.h"
#include "hosts/acrobat/structure/layers.h"

namespace foliant::hosts::acrobat::structure {

namespace {

/// New pages in the target stand in for those of the source that are inserted, nothing for the others.
PageList make_pages(const Insertion& insertion) {
    static const auto nothing = std::make_shared<const Inherited>();
    const PageList& originals = insertion.source.pages();
    for (const Page& page : originals)
        insertion.copier.stand_in(page.object, QPDFObjectHandle::newNull());
    PageList pages;
    for (std::size_t i = insertion.first; i < insertion.first + insertion.count; ++i) {
        const QPDFObjectHandle page =
            insertion.target.qpdf().makeIndirectObject(QPDFObjectHandle::newDictionary());
        insertion.copier.stand_in(originals[i].object, page);
        pages.push_back({page, nothing});
    }
    return pages;
}

void fill_page(const Page& original, QPDFObjectHandle page, ObjectCopier& copier) {
    // Article threads are not taken over, so pages do not refer to them either.
    copier.copy_entries(original.object, page, {"/Parent", "/B"});
    for (const char* key : {"/Resources", "/MediaBox", "/CropBox", "/Rotate"}) {
        const QPDFObjectHandle value = original.value(key);
        if (!page.hasKey(key) && !QPDFObjectHandle(value).isNull()) page.replaceKey(key, copier.copy(value));
    }
    page.replaceKey("/Type", QPDFObjectHandle::newName("/Page"));
}

}  // namespace

Assembly::Assembly(Pdf& pdf)
    : pdf_(pdf),
      destinations_(pdf),
      attachments_(pdf, "/EmbeddedFiles"),
      form_(pdf),
      labels_(pdf),
      tags_(pdf) {}

void Assembly::insert(Pdf& source, std::size_t position, std::size_t first, std::size_t count,
                      bool with_bookmarks) {
    ObjectCopier copier(source, pdf_);
    const Insertion insertion{pdf_, source, copier, position, first, count, ++insertions_};
    tags_.prepare(insertion);
    PageList pages = make_pages(insertion);
    destinations_.prepare(insertion);
    for (std::size_t i = 0; i < pages.size(); ++i)
        fill_page(source.pages()[first + i], pages[i].object, copier);
    copier.finish();
    destinations_.add();
    if (with_bookmarks) add_bookmarks(insertion);
    add_attachments(attachments_, insertion);
    add_layers(insertion);
    tags_.add(insertion);
    copier.finish();
    form_.add(insertion);
    labels_.insert(insertion);
    copier.finish();
    PageList& all = pdf_.pages();
    all.insert(all.begin() + static_cast<std::ptrdiff_t>(position), std::make_move_iterator(pages.begin()),
               std::make_move_iterator(pages.end()));
    pages_changed_ = true;
    pdf_.require_version_of(source);
}

void Assembly::settle() {
    if (std::exchange(pages_changed_, false)) write_page_tree(pdf_.qpdf(), pdf_.pages());
    destinations_.settle();
    attachments_.settle();
    labels_.settle();
    tags_.settle();
}

}  // namespace foliant::hosts::acrobat::structure
