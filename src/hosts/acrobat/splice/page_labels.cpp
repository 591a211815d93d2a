#include "hosts/acrobat/splice/page_labels.h"

#include <vector>

#include "hosts/acrobat/splice/key_tree.h"

namespace foliant::hosts::acrobat::splice {

using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

constexpr const char* usual_range = "<< /S /D >>";  // 1, 2, 3 ...

}  // namespace

PageLabels PageLabels::of(PlainDocument& document, Copier& copier) {
    PageLabels labels;
    read_tree(
        document.file(), document.file().resolved(entry(document.catalogue(), "/PageLabels")), "/Nums",
        [&](const Value& page, const Value& range) {
            require(page.kind == Kind::integer && document.file().resolved(range).kind == Kind::dictionary);
            const auto [place, is_new] = labels.ranges_.try_emplace(static_cast<std::size_t>(page.number));
            if (is_new) copier.copy(range.text, place->second);
        });
    if (!labels.ranges_.empty()) labels.ranges_.try_emplace(0, usual_range);
    return labels;
}

void PageLabels::append(const PageLabels& coming, std::size_t before, std::size_t count) {
    if (ranges_.empty() && coming.ranges_.empty()) return;
    ranges_.erase(ranges_.lower_bound(before), ranges_.end());
    if (before > 0) ranges_.try_emplace(0, usual_range);
    if (coming.ranges_.empty()) ranges_.try_emplace(before, usual_range);
    for (const auto& [page, range] : coming.ranges_)
        if (page < count) ranges_.emplace(before + page, range);
}

std::string PageLabels::write(Body& body) const {
    if (ranges_.empty()) return {};
    std::vector<TreeItem> items;
    items.reserve(ranges_.size());
    for (const auto& [page, range] : ranges_)
        items.push_back({std::to_string(page), range});
    return "/PageLabels " + reference(write_tree(body, "/Nums", items)) + " ";
}

}  // namespace foliant::hosts::acrobat::splice
