#pragma once

#include <functional>
#include <optional>

#include "automation/error.h"
#include "automation/object.h"

namespace foliant::cli {

/// The Internet Transfer control that a script hands over, and that the command makes in its place. It tells
/// how far a transfer has got, and afterwards what the member does not ask for.
class TransferControl : public automation::Object {
  public:
    /// Told how much of a transfer is done, 0 to 100.
    using Progress = std::function<void(std::int32_t percent)>;

    TransferControl(automation::ObjectPtr control, Progress progress)
        : control_(std::move(control)), progress_(std::move(progress)) {}

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override;

    /// What the server has refused, in its words; nothing when it has refused nothing.
    std::optional<automation::Error> refusal() const;

  private:
    automation::Value control_;
    Progress progress_;
};

}  // namespace foliant::cli
