#include "hosts/office/engine/progress_relay.h"

#include <algorithm>
#include <utility>

namespace foliant::hosts::office {

namespace {

constexpr std::chrono::milliseconds between_messages{150};

}  // namespace

ProgressRelay::ProgressRelay(Machine& machine, std::string doing)
    : machine_(machine), doing_(std::move(doing)) {}

void ProgressRelay::start(const rtl::OUString&, sal_Int32 range) {
    range_ = range;
}

void ProgressRelay::setValue(sal_Int32 value) {
    const auto now = std::chrono::steady_clock::now();
    if (range_ <= 0 || now < next_ || std::this_thread::get_id() != thread_) return;
    next_ = now + between_messages;
    constexpr std::int64_t whole = 100;
    const std::int64_t percent = std::clamp<std::int64_t>(whole * value / range_, 0, whole);
    try {
        machine_.show_progress(doing_, static_cast<int>(percent));
    } catch (...) {  // NOLINT(bugprone-empty-catch): LibreOffice expects none, and the next request tells
    }
}

com::sun::star::uno::Reference<com::sun::star::task::XStatusIndicator> relay_progress(Machine& machine,
                                                                                      std::string doing) {
    return new ProgressRelay(machine, std::move(doing));
}

}  // namespace foliant::hosts::office
