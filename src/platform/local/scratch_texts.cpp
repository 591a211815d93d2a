#include "platform/local/scratch_texts.h"

#include <algorithm>
#include <utility>

namespace foliant::platform::local {
namespace {

class ScratchText : public TextFile {
  public:
    explicit ScratchText(std::shared_ptr<ScratchTexts::Lines> lines) : lines_(std::move(lines)) {}
    void write_line(std::string_view line) override { lines_->emplace_back(line); }
    void close() override {}

  private:
    std::shared_ptr<ScratchTexts::Lines>
        lines_;  // stay while they are written, even when the text is removed
};

}  // namespace

std::unique_ptr<TextFile> ScratchTexts::create(const std::string& path) {
    entries_.push_back({path, std::make_shared<Lines>()});
    return std::make_unique<ScratchText>(entries_.back().lines);
}

const ScratchTexts::Lines* ScratchTexts::find(const std::string& path) const {
    const auto newest = std::find_if(entries_.rbegin(), entries_.rend(),
                                     [&path](const Entry& entry) { return entry.path == path; });
    return newest == entries_.rend() ? nullptr : newest->lines.get();
}

bool ScratchTexts::remove(const std::string& path) {
    const auto newest = std::find_if(entries_.rbegin(), entries_.rend(),
                                     [&path](const Entry& entry) { return entry.path == path; });
    if (newest == entries_.rend()) return false;
    entries_.erase(std::prev(newest.base()));
    return true;
}

}  // namespace foliant::platform::local
