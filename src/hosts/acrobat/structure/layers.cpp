#include "hosts/acrobat/structure/layers.h"

#include <set>
#include <vector>

#include "hosts/acrobat/structure/catalogue_entry.h"

namespace foliant::hosts::acrobat::structure {

namespace {

std::vector<QPDFObjectHandle> copies_of(const std::vector<QPDFObjectHandle>& originals,
                                        ObjectCopier& copier) {
    std::vector<QPDFObjectHandle> copies;
    copies.reserve(originals.size());
    for (const QPDFObjectHandle& original : originals)
        copies.push_back(copier.copy(original));
    return copies;
}

/// The layers that are not shown although nobody says so of each.
std::vector<QPDFObjectHandle> hidden_by_default(QPDFObjectHandle properties, QPDFObjectHandle configuration) {
    std::vector<QPDFObjectHandle> hidden;
    if (!configuration.getKey("/BaseState").isNameAndEquals("/OFF")) return hidden;
    std::set<QPDFObjGen> shown;
    for (const QPDFObjectHandle& layer : items_of(configuration.getKey("/ON")))
        shown.insert(layer.getObjGen());
    for (const QPDFObjectHandle& layer : items_of(properties.getKey("/OCGs")))
        if (!shown.contains(layer.getObjGen())) hidden.push_back(layer);
    return hidden;
}

}  // namespace

void add_layers(const Insertion& insertion) {
    QPDFObjectHandle properties = insertion.source.qpdf().getRoot().getKey("/OCProperties");
    if (!properties.isDictionary() || !properties.getKey("/OCGs").isArray()) return;
    QPDFObjectHandle catalogue = insertion.target.qpdf().getRoot();
    if (!catalogue.getKey("/OCProperties").isDictionary()) {
        catalogue.replaceKey("/OCProperties", insertion.copier.copy(properties));
        insertion.copier.finish();
        return;
    }
    QPDFObjectHandle own = catalogue.getKey("/OCProperties");
    QPDFObjectHandle own_configuration = dictionary_in(own, "/D");
    QPDFObjectHandle configuration = properties.getKey("/D");
    append_to(own, "/OCGs", copies_of(items_of(properties.getKey("/OCGs")), insertion.copier));
    if (!configuration.isDictionary()) return;
    for (const char* key : {"/Order", "/ON", "/OFF", "/Locked", "/RBGroups", "/AS"})
        append_to(own_configuration, key, copies_of(items_of(configuration.getKey(key)), insertion.copier));
    append_to(own_configuration, "/OFF",
              copies_of(hidden_by_default(properties, configuration), insertion.copier));
}

}  // namespace foliant::hosts::acrobat::structure
