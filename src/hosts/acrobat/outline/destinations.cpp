#include "hosts/acrobat/outline/destinations.h"

#include <algorithm>
#include <qpdf/QPDFNameTreeObjectHelper.hh>

namespace foliant::hosts::acrobat::outline {
namespace {

/// What a name stands for: texts are in a tree, names in a dictionary, as older files have them.
QPDFObjectHandle named_destination(QPDF& pdf, QPDFObjectHandle name) {
    QPDFObjectHandle found = QPDFObjectHandle::newNull();
    QPDFObjectHandle root = pdf.getRoot();
    if (name.isName() && root.getKey("/Dests").isDictionary()) {
        found = root.getKey("/Dests").getKey(name.getName());
    } else if (name.isString() && root.getKey("/Names").isDictionary()) {
        QPDFObjectHandle names = root.getKey("/Names").getKey("/Dests");
        if (names.isDictionary())
            QPDFNameTreeObjectHelper(names, pdf, false).findObject(name.getUTF8Value(), found);
    }
    return found;
}

/// Where a bookmark leads, or its action where that only goes to a place of this document.
QPDFObjectHandle destination_of(QPDFObjectHandle bookmark) {
    QPDFObjectHandle action = bookmark.getKey("/A");
    if (bookmark.hasKey("/Dest") || !action.isDictionary()) return bookmark.getKey("/Dest");
    return action.getKey("/S").isNameAndEquals("/GoTo") ? action.getKey("/D") : QPDFObjectHandle::newNull();
}

}  // namespace

std::optional<std::int32_t> page_behind(structure::Pdf& pdf, QPDFObjectHandle bookmark) {
    QPDFObjectHandle destination = destination_of(bookmark);
    if (destination.isName() || destination.isString())
        destination = named_destination(pdf.qpdf(), destination);
    if (destination.isDictionary()) destination = destination.getKey("/D");
    if (!destination.isArray() || destination.getArrayNItems() == 0) return std::nullopt;
    const QPDFObjGen wanted = destination.getArrayItem(0).getObjGen();
    const auto& pages = pdf.pages();
    const auto found =
        std::ranges::find_if(pages, [&](const auto& page) { return page.object.getObjGen() == wanted; });
    if (!wanted.isIndirect() || found == pages.end()) return std::nullopt;
    return static_cast<std::int32_t>(found - pages.begin());
}

}  // namespace foliant::hosts::acrobat::outline
