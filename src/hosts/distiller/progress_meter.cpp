#include "hosts/distiller/progress_meter.h"

#include <algorithm>

namespace foliant::hosts::distiller {

ProgressMeter::ProgressMeter(const std::vector<SourceFile>& files) : starts_{0} {
    bool all_declare = true;
    for (const SourceFile& file : files) {
        starts_.push_back(starts_.back() + file.bytes);
        all_declare = all_declare && file.declared_pages;
        declared_pages_ += file.declared_pages.value_or(0);
    }
    if (!all_declare) declared_pages_ = 0;
}

int ProgressMeter::after_page(int page, std::size_t file, std::uintmax_t position) {
    const bool pages_count = page <= declared_pages_;
    const double share =
        pages_count ? static_cast<double>(page) / declared_pages_ : share_of_bytes(file, position);
    percent_ = std::max(percent_, std::min(static_cast<int>(share * 100), 99));
    return percent_;
}

double ProgressMeter::share_of_bytes(std::size_t file, std::uintmax_t position) const {
    if (file + 1 >= starts_.size() || starts_.back() == 0) return 0;
    const auto reached = std::min(starts_[file] + position, starts_[file + 1]);
    return static_cast<double>(reached) / static_cast<double>(starts_.back());
}

}  // namespace foliant::hosts::distiller
