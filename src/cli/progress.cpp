#include "cli/progress.h"

#include "automation/coerce.h"
#include "cli/visible_text.h"

namespace foliant::cli {

void ProgressBar::notify(std::string_view event, std::span<const automation::Value> arguments) {
    if (out_ == nullptr || arguments.empty()) return;
    if (event == "JobStart") {
        finish();
        *out_ << "Converting " << visible_line(automation::to_text(arguments[1]));
        bar_ = std::make_unique<boost::timer::progress_display>(100, *out_);
    } else if (event == "PercentDone" && bar_) {
        const auto percent = static_cast<unsigned long>(std::max(0, automation::to_int32(arguments[0])));
        if (percent > bar_->count() && percent <= bar_->expected_count()) *bar_ += percent - bar_->count();
    } else if (event == "JobDone" && bar_) {
        if (bar_->count() < bar_->expected_count()) *bar_ += bar_->expected_count() - bar_->count();
        bar_.reset();
    } else if (event == "JobFail") {
        finish();
    }
}

void ProgressBar::finish() {
    if (bar_ && bar_->count() < bar_->expected_count()) *out_ << std::endl;
    bar_.reset();
}

}  // namespace foliant::cli
