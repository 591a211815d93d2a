#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/stage/stage.h"

namespace foliant::platform::stage {

/// A scripted automation object. Every access is an action of its stage and a line of the journal:
///
///     Word.Application.DisplayAlerts = Integer(0)        a property was set
///     Word.Application.ActivePrinter -> "HP"             a property was read, with what it answered
///     Word.Document.PrintOut(Outputfilename:="C:\1.ps")  a method was called
class StageObject : public automation::Object {
  public:
    /// When `owned`, letting the last reference go writes a "release" line; objects that are only passed
    /// through on the way to another (Documents, PageSetup) write none.
    StageObject(Stage& stage, std::string name, bool owned);
    ~StageObject() override;

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) override;
    std::unique_ptr<automation::Subscription> subscribe(automation::EventSink& sink) override;
    /// Each element is an action, too:
    ///
    ///     enumerate Access.Printers
    ///     next of Access.Printers -> Access.Printer
    ///     next of Access.Printers -> none
    std::unique_ptr<automation::Enumeration> enumerate() override;

    /// Raises a notification of this object; those who subscribed get it at once.
    void notify(std::string_view event, const std::vector<automation::Value>& arguments);

    /// The class name of an object that was created; the application and the member or kind of one that was
    /// got from another: "Word.Documents".
    const std::string& name() const noexcept { return name_; }
    Stage& stage() const noexcept { return stage_; }

  private:
    class Listening;
    class Elements;

    /// The name of an object that this one answers for a member: its own up to the first dot, and the member.
    std::string name_of(std::string_view member) const;

    Stage& stage_;
    std::string name_;
    bool owned_;
    std::vector<automation::EventSink*> sinks_;
};

/// The argument of that name, or the one at that position when it is positional; nullptr when there is none.
const automation::Value* find_argument(const automation::Arguments& arguments, std::string_view name,
                                       std::size_t position);

}  // namespace foliant::platform::stage
