#pragma once

#include <string_view>

#include "automation/value.h"

namespace foliant::engines {

/// The last call on an object, and then it is let go: `end_with(document, "Close", {false})`. When the call
/// fails the object stays held, so that the error trap makes the call again.
void end_with(automation::Value& object, std::string_view member,
              const automation::Arguments& arguments = {});

/// The same in an error trap: for an object that is held, and whatever the call raises.
void end_with_if_held(automation::Value& object, std::string_view member,
                      const automation::Arguments& arguments = {}) noexcept;

/// Whether there is an object to be let go.
bool is_held(const automation::Value& object) noexcept;

/// The program that a member starts for one call: the application, and the document once it is open. Each of
/// the two is let go once.
///
/// Nothing is closed by the destructor: the order in which a program is closed and quit is the member's, and
/// the error trap has one of its own.
struct HostProgram {
    automation::Value application;
    automation::Value document;

    /// The normal end: `Close` of the document with those arguments, then `Quit` of the application; each is
    /// let go right after its call. What fails stays held, for the error trap to try again.
    void close_and_quit(const automation::Arguments& closing = {});

    /// The end in the error trap: the same for what is held, whatever fails.
    void let_go(const automation::Arguments& closing = {}) noexcept;
};

}  // namespace foliant::engines
