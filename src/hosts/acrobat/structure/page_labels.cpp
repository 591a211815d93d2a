#include "hosts/acrobat/structure/page_labels.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "hosts/acrobat/structure/name_tree.h"

namespace foliant::hosts::acrobat::structure {

namespace {

long long start_of(QPDFObjectHandle range) {
    QPDFObjectHandle start = range.getKey("/St");
    return start.isInteger() ? std::max(1LL, start.getIntValue()) : 1;
}

/// 1, 2, 3 ...
QPDFObjectHandle usual_range() {
    QPDFObjectHandle range = QPDFObjectHandle::newDictionary();
    range.replaceKey("/S", QPDFObjectHandle::newName("/D"));
    return range;
}

}  // namespace

PageLabels::PageLabels(Pdf& pdf) : pdf_(pdf), ranges_(read(pdf)) {}

PageLabels::Ranges PageLabels::read(Pdf& pdf) {
    Ranges ranges;
    for (const auto& [page, range] : read_number_tree(pdf.qpdf().getRoot().getKey("/PageLabels")))
        if (page >= 0 && QPDFObjectHandle(range).isDictionary())
            ranges.emplace(static_cast<std::size_t>(page), range);
    if (!ranges.empty() && !ranges.contains(0)) ranges.emplace(0, usual_range());
    return ranges;
}

void PageLabels::split(Ranges& ranges, std::size_t page) {
    auto range = ranges.upper_bound(page);
    if (range == ranges.begin()) return;
    --range;
    if (range->first == page) return;
    QPDFObjectHandle rest = range->second.shallowCopy();
    const auto passed = static_cast<long long>(page - range->first);
    rest.replaceKey("/St", QPDFObjectHandle::newInteger(start_of(range->second) + passed));
    ranges.emplace(page, rest);
}

void PageLabels::insert(const Insertion& insertion) {
    Ranges coming = read(insertion.source);
    if (ranges_.empty() && coming.empty()) return;
    is_changed_ = true;
    const std::size_t pages = insertion.target.pages().size();
    if (ranges_.empty() && pages > 0) ranges_.emplace(0, usual_range());
    if (coming.empty()) coming.emplace(0, usual_range());
    split(ranges_, insertion.position);
    split(coming, insertion.first);
    Ranges moved;
    for (auto range = ranges_.lower_bound(insertion.position); range != ranges_.end();) {
        if (range->first < pages) moved.emplace(range->first + insertion.count, range->second);
        range = ranges_.erase(range);
    }
    const std::size_t end = insertion.first + insertion.count;
    for (auto range = coming.lower_bound(insertion.first); range != coming.end() && range->first < end;
         ++range)
        ranges_.emplace(range->first - insertion.first + insertion.position,
                        insertion.copier.copy(range->second));
    ranges_.merge(moved);
}

void PageLabels::settle() {
    if (!std::exchange(is_changed_, false)) return;
    Numbers numbers;
    for (const auto& [page, range] : ranges_)
        numbers.emplace(static_cast<long long>(page), range);
    pdf_.qpdf().getRoot().replaceKey("/PageLabels", write_number_tree(pdf_.qpdf(), numbers));
}

}  // namespace foliant::hosts::acrobat::structure
