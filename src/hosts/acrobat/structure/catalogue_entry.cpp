#include "hosts/acrobat/structure/catalogue_entry.h"

namespace foliant::hosts::acrobat::structure {

QPDFObjectHandle dictionary_in(QPDFObjectHandle parent, const std::string& key) {
    if (!parent.getKey(key).isDictionary()) parent.replaceKey(key, QPDFObjectHandle::newDictionary());
    return parent.getKey(key);
}

QPDFObjectHandle own_dictionary_in(QPDF& pdf, QPDFObjectHandle parent, const std::string& key) {
    QPDFObjectHandle dictionary = dictionary_in(parent, key);
    if (dictionary.isIndirect()) return dictionary;
    dictionary = pdf.makeIndirectObject(dictionary);
    parent.replaceKey(key, dictionary);
    return dictionary;
}

void append_to(QPDFObjectHandle parent, const std::string& key, const std::vector<QPDFObjectHandle>& items) {
    if (items.empty()) return;
    if (!parent.getKey(key).isArray()) parent.replaceKey(key, QPDFObjectHandle::newArray());
    QPDFObjectHandle array = parent.getKey(key);
    for (const QPDFObjectHandle& item : items)
        array.appendItem(item);
}

std::vector<QPDFObjectHandle> items_of(QPDFObjectHandle object) {
    if (object.isArray()) return object.getArrayAsVector();
    if (object.isNull()) return {};
    return {object};
}

}  // namespace foliant::hosts::acrobat::structure
