#include "hosts/acrobat/splice/destinations.h"

#include <utility>

#include "hosts/acrobat/splice/key_tree.h"
#include "hosts/acrobat/splice/strings.h"
#include "hosts/acrobat/splice/unused_name.h"

namespace foliant::hosts::acrobat::splice {

using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

using Names = std::map<std::string, Value>;

Names names_in_tree(glance::PlainFile& file, const Value& catalogue) {
    Names names;
    const Value all = file.resolved(entry(catalogue, "/Names"));
    if (all.kind == Kind::null) return names;
    read_tree(file, entry(all, "/Dests"), "/Names",
              [&](const Value& name, const Value& place) { names.emplace(string_bytes(name.text), place); });
    return names;
}

/// Those of the catalogue's own dictionary, without their slashes.
Names old_names(glance::PlainFile& file, const Value& catalogue) {
    Names names;
    const Value dictionary = file.resolved(entry(catalogue, "/Dests"));
    if (dictionary.kind == Kind::null) return names;
    glance::Entries entries(dictionary);
    std::string_view name;
    for (Value place; entries.next(name, place);)
        names.emplace(name.substr(1), place);
    return names;
}

/// What leads elsewhere is not taken over.
bool leads_to_page(glance::PlainFile& file, const Value& place, Copier& copier) {
    Value target = file.resolved(place);
    if (target.kind == Kind::dictionary) target = file.resolved(entry(target, "/D"));
    Value page;
    return target.kind == Kind::array && glance::Items(target).next(page) && copier.has_stand_in(page);
}

}  // namespace

void Destinations::begin_with(PlainDocument& first, Copier& copier) {
    const Value catalogue = first.catalogue();
    for (const auto& [name, place] : names_in_tree(first.file(), catalogue))
        copier.copy(place.text, tree_[name]);
    for (const auto& [name, place] : old_names(first.file(), catalogue))
        old_.insert(name);
    const Value all = first.file().resolved(entry(catalogue, "/Names"));
    if (all.kind != Kind::null) copier.copy_entries(all, {"/Dests"}, other_entries_);
}

std::vector<Destinations::Coming> Destinations::prepare(PlainDocument& source, Copier& copier,
                                                        int suffix) const {
    Names names = names_in_tree(source.file(), source.catalogue());
    names.merge(old_names(source.file(), source.catalogue()));
    std::vector<Coming> coming;
    std::map<std::string, std::string> changed;
    for (const auto& [name, place] : names) {
        if (!leads_to_page(source.file(), place, copier)) continue;
        std::string chosen = unused_name(name, suffix, [&](const std::string& other) {
            return is_taken(other) || (other != name && names.contains(other));
        });
        if (chosen != name) changed.emplace(name, chosen);
        coming.push_back({std::move(chosen), place});
    }
    if (!names.empty()) copier.change_names(std::move(changed));
    return coming;
}

void Destinations::copy(std::vector<Coming>& coming, Copier& copier) {
    for (Coming& one : coming)
        copier.copy(one.place.text, one.text);
}

void Destinations::add(std::vector<Coming> coming) {
    for (Coming& one : coming)
        tree_[one.name] = std::move(one.text);
}

std::string Destinations::write(Body& body) const {
    if (tree_.empty() && other_entries_.empty()) return {};
    std::string entries = "/Names << " + other_entries_;
    if (!tree_.empty()) {
        std::vector<TreeItem> items;
        items.reserve(tree_.size());
        for (const auto& [name, place] : tree_)
            items.push_back({string_text(name), place});
        entries += "/Dests " + reference(write_tree(body, "/Names", items));
    }
    return entries + " >> ";
}

}  // namespace foliant::hosts::acrobat::splice
