#pragma once

#include <functional>
#include <optional>

#include "automation/error.h"
#include "automation/object.h"
#include "hosts/transfer_command.h"

namespace foliant::cli {

/// The Internet Transfer control that a script hands over, and that the command makes in its place. It tells
/// how far a transfer has got, and afterwards what the member does not ask for.
///
/// The member writes the names of both files into one text, in which nobody can tell them apart when they have
/// blanks. Here they are known: the control is told so that no other files can be meant.
class TransferControl : public automation::Object {
  public:
    /// Told how much of a transfer is done, 0 to 100.
    using Progress = std::function<void(std::int32_t percent)>;

    TransferControl(automation::ObjectPtr control, hosts::TransferCommand meant, Progress progress)
        : control_(std::move(control)), meant_(std::move(meant)), progress_(std::move(progress)) {}

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override;

    /// What the server has refused, in its words; nothing when it has refused nothing.
    std::optional<automation::Error> refusal() const;

  private:
    automation::Value execute(automation::Arguments arguments);

    automation::Value control_;
    hosts::TransferCommand meant_;
    Progress progress_;
};

}  // namespace foliant::cli
