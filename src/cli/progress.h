#pragma once

#include <boost/timer/progress_display.hpp>
#include <memory>
#include <ostream>

#include "automation/object.h"

namespace foliant::cli {

/// Shows the progress of Distiller jobs as a bar, from the component's own events. Nothing shows before the
/// first job starts, and nothing at all when it is made without a stream.
class ProgressBar : public automation::EventSink {
  public:
    /// `out` outlives the bar; nullptr for none.
    explicit ProgressBar(std::ostream* out) : out_(out) {}
    ~ProgressBar() override { finish(); }

    void notify(std::string_view event, std::span<const automation::Value> arguments) override;

    /// Ends the line of a bar that did not get to its end.
    void finish();

  private:
    std::ostream* out_;
    std::unique_ptr<boost::timer::progress_display> bar_;
};

}  // namespace foliant::cli
