#include "hosts/acrobat/glance/page_count.h"

#include <limits>

#include "hosts/acrobat/glance/plain_file.h"

namespace foliant::hosts::acrobat::glance {

namespace {

/// A root with so few children is asked whether they agree with it; as the engine's room does it.
constexpr std::int64_t few_children = 64;

/// What a node of the page tree claims: its number, or 1 for a page.
std::int64_t claim(PlainFile& file, const Value& node) {
    require(node.kind == Kind::dictionary);
    const Value kids = file.resolved(entry(node, "/Kids"));
    if (kids.kind != Kind::array) return 1;
    const Value count = file.resolved(entry(node, "/Count"));
    require(count.kind == Kind::integer);
    return count.number;
}

std::int64_t claim_of_root(PlainFile& file) {
    const Value catalogue = file.resolved(entry(file.trailer(), "/Root"));
    const Value root = file.resolved(entry(catalogue, "/Pages"));
    const Value kids = file.resolved(entry(root, "/Kids"));
    const std::int64_t pages = claim(file, root);
    require(pages < entry(file.trailer(), "/Size").number);
    std::int64_t children = 0;
    Items items(kids);
    for (Value kid; items.next(kid);)
        ++children;
    if (children > few_children) {
        require(pages >= children);
        return pages;
    }
    std::int64_t together = 0;
    Items again(kids);
    for (Value kid; again.next(kid);)
        together += claim(file, file.resolved(kid));
    require(together == pages);
    return pages;
}

}  // namespace

std::int32_t page_count(PlainFile& file) {
    const std::int64_t pages = claim_of_root(file);
    require(pages <= std::numeric_limits<std::int32_t>::max());
    return static_cast<std::int32_t>(pages);
}

std::optional<std::int32_t> page_count(std::string_view bytes) {
    try {
        PlainFile file(bytes);
        return page_count(file);
    } catch (const Doubt&) {
        return std::nullopt;
    }
}

}  // namespace foliant::hosts::acrobat::glance
