#include "hosts/acrobat/structure/destinations.h"

#include <utility>

#include "hosts/acrobat/structure/catalogue_entry.h"

namespace foliant::hosts::acrobat::structure {

namespace {

Names read_names(Pdf& pdf, const std::string& key) {
    QPDFObjectHandle names = pdf.qpdf().getRoot().getKey("/Names");
    return names.isDictionary() ? read_name_tree(names.getKey(key)) : Names();
}

/// Names of the catalogue's own dictionary, without their slashes.
Names read_old_names(Pdf& pdf) {
    Names names;
    QPDFObjectHandle dictionary = pdf.qpdf().getRoot().getKey("/Dests");
    if (!dictionary.isDictionary()) return names;
    for (const auto& [name, destination] : dictionary.getDictAsMap())
        names.emplace(name.substr(1), destination);
    return names;
}

}  // namespace

NamedObjects::NamedObjects(Pdf& pdf, std::string key)
    : pdf_(pdf), key_(std::move(key)), names_(read_names(pdf, key_)) {}

std::string NamedObjects::name_for(const std::string& wanted, const Insertion& insertion) const {
    return insertion.unused(wanted, names_);
}

void NamedObjects::add(const std::string& name, QPDFObjectHandle object) {
    names_[name] = object;
    is_changed_ = true;
}

void NamedObjects::settle() {
    if (!std::exchange(is_changed_, false)) return;
    dictionary_in(pdf_.qpdf().getRoot(), "/Names").replaceKey(key_, write_name_tree(pdf_.qpdf(), names_));
}

Destinations::Destinations(Pdf& pdf) : tree_(pdf, "/Dests"), old_names_(read_old_names(pdf)) {}

void Destinations::prepare(const Insertion& insertion) {
    coming_.clear();
    copier_ = &insertion.copier;
    Names names = read_names(insertion.source, "/Dests");
    names.merge(read_old_names(insertion.source));
    for (const auto& [name, destination] : names) {
        if (!leads_to_copied_page(destination, insertion.copier)) continue;
        std::string chosen = splice::unused_name(name, insertion.number + 1, [&](const std::string& other) {
            return tree_.contains(other) || old_names_.contains(other) ||
                   (other != name && names.contains(other));
        });
        if (chosen != name) insertion.copier.destination_names[name] = chosen;
        coming_.push_back({std::move(chosen), destination});
    }
}

void Destinations::add() {
    for (Coming& one : std::exchange(coming_, {}))
        tree_.add(one.name, copier_->copy(one.destination));
}

bool leads_to_copied_page(QPDFObjectHandle destination, const ObjectCopier& copier) {
    if (destination.isDictionary()) destination = destination.getKey("/D");
    if (!destination.isArray() || destination.getArrayNItems() == 0) return false;
    return copier.has_copy(destination.getArrayItem(0));
}

void add_attachments(NamedObjects& attachments, const Insertion& insertion) {
    if (!insertion.is_whole()) return;
    for (const auto& [name, file] : read_names(insertion.source, "/EmbeddedFiles"))
        attachments.add(attachments.name_for(name, insertion), insertion.copier.copy(file));
}

}  // namespace foliant::hosts::acrobat::structure
