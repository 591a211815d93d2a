#include "hosts/acrobat/structure/page_box.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace foliant::hosts::acrobat::structure {

namespace {

constexpr double farthest = 1e7;  // points; a coordinate beyond is nonsense

std::optional<PageBox> read_box(QPDFObjectHandle box) {
    if (!box.isArray() || box.getArrayNItems() != 4) return std::nullopt;
    double corners[4] = {};
    for (int i = 0; i < 4; ++i) {
        QPDFObjectHandle number = box.getArrayItem(i);
        if (!number.isNumber()) return std::nullopt;
        corners[i] = number.getNumericValue();
        if (!std::isfinite(corners[i]) || std::fabs(corners[i]) > farthest) return std::nullopt;
    }
    PageBox result;
    result.left = std::min(corners[0], corners[2]);
    result.right = std::max(corners[0], corners[2]);
    result.bottom = std::min(corners[1], corners[3]);
    result.top = std::max(corners[1], corners[3]);
    if (result.left == result.right || result.bottom == result.top) return std::nullopt;
    return result;
}

PageBox cropped(const PageBox& sheet, const PageBox& crop) {
    PageBox both = sheet;
    both.left = std::max(sheet.left, crop.left);
    both.right = std::min(sheet.right, crop.right);
    both.bottom = std::max(sheet.bottom, crop.bottom);
    both.top = std::min(sheet.top, crop.top);
    return both.left < both.right && both.bottom < both.top ? both : sheet;
}

int turned(QPDFObjectHandle rotate) {
    if (!rotate.isInteger()) return 0;
    const auto degrees = static_cast<int>(rotate.getIntValue() % 360);
    return degrees % 90 == 0 ? (degrees + 360) % 360 : 0;
}

}  // namespace

PageBox page_box(const Page& page) {
    PageBox box = read_box(page.value("/MediaBox")).value_or(PageBox());
    if (const auto crop = read_box(page.value("/CropBox"))) box = cropped(box, *crop);
    box.turned = turned(page.value("/Rotate"));
    QPDFObjectHandle unit = page.value("/UserUnit");
    if (unit.isNumber() && unit.getNumericValue() > 0 && unit.getNumericValue() < farthest)
        box.user_unit = unit.getNumericValue();
    return box;
}

}  // namespace foliant::hosts::acrobat::structure
