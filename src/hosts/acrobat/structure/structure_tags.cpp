#include "hosts/acrobat/structure/structure_tags.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "hosts/acrobat/structure/catalogue_entry.h"

namespace foliant::hosts::acrobat::structure {

namespace {

QPDFObjectHandle tags_of(Pdf& pdf) {
    return pdf.qpdf().getRoot().getKey("/StructTreeRoot");
}

/// The first number that nothing of a document has.
long long first_free_number(const Numbers& numbers, QPDFObjectHandle root) {
    const long long used = numbers.empty() ? 0 : numbers.rbegin()->first + 1;
    QPDFObjectHandle next = root.getKey("/ParentTreeNextKey");
    return std::max(used, next.isInteger() ? next.getIntValue() : 0);
}

/// Adds the entries of one of the root's dictionaries; those that are there stay.
void add_entries(QPDFObjectHandle root, const std::string& key, QPDFObjectHandle coming,
                 ObjectCopier& copier) {
    if (!coming.isDictionary()) return;
    QPDFObjectHandle own = dictionary_in(root, key);
    for (const auto& [name, value] : coming.getDictAsMap())
        if (!own.hasKey(name)) own.replaceKey(name, copier.copy(value));
}

/// A document that has no such thing yet says it of itself as the source does.
void take_over(QPDFObjectHandle catalogue, const std::string& key, const Insertion& insertion) {
    const QPDFObjectHandle coming = insertion.source.qpdf().getRoot().getKey(key);
    if (!catalogue.hasKey(key)) catalogue.replaceKey(key, insertion.copier.copy(coming));
}

}  // namespace

QPDFObjectHandle StructureTags::root() {
    QPDFObjectHandle root = own_dictionary_in(pdf_.qpdf(), pdf_.qpdf().getRoot(), "/StructTreeRoot");
    root.replaceKey("/Type", QPDFObjectHandle::newName("/StructTreeRoot"));
    return root;
}

void StructureTags::read() {
    if (std::exchange(is_read_, true)) return;
    parents_ = read_number_tree(root().getKey("/ParentTree"));
    next_ = first_free_number(parents_, root());
    kids_ = items_of(root().getKey("/K"));
}

void StructureTags::prepare(const Insertion& insertion) {
    insertion.copier.structure_offset = -1;
    QPDFObjectHandle coming = tags_of(insertion.source);
    if (!coming.isDictionary() || !insertion.is_whole()) return;
    read();
    if (next_ > std::numeric_limits<int>::max() / 2) return;  // no document has as many
    insertion.copier.structure_offset = static_cast<int>(next_);
    if (coming.isIndirect()) insertion.copier.stand_in(coming, root());
}

void StructureTags::add(const Insertion& insertion) {
    if (insertion.copier.structure_offset < 0) return;
    is_changed_ = true;
    QPDFObjectHandle coming = tags_of(insertion.source);
    for (const QPDFObjectHandle& kid : items_of(coming.getKey("/K")))
        kids_.push_back(insertion.copier.copy(kid));
    const Numbers numbers = read_number_tree(coming.getKey("/ParentTree"));
    for (const auto& [number, parent] : numbers)
        parents_[number + insertion.copier.structure_offset] = insertion.copier.copy(parent);
    next_ = insertion.copier.structure_offset + first_free_number(numbers, coming);
    for (const char* key : {"/RoleMap", "/ClassMap"})
        add_entries(root(), key, coming.getKey(key), insertion.copier);
    for (const char* key : {"/MarkInfo", "/Lang"})
        take_over(pdf_.qpdf().getRoot(), key, insertion);
}

void StructureTags::settle() {
    if (!std::exchange(is_changed_, false)) return;
    root().replaceKey("/K", QPDFObjectHandle::newArray(kids_));
    root().replaceKey("/ParentTree", write_number_tree(pdf_.qpdf(), parents_));
    root().replaceKey("/ParentTreeNextKey", QPDFObjectHandle::newInteger(next_));
}

}  // namespace foliant::hosts::acrobat::structure
