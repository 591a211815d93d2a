#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "automation/value.h"

namespace foliant::automation {

/// How a member of an object is reached.
enum class Access { get, call, set, set_reference };

/// Receives the notifications of an object.
class EventSink {
  public:
    virtual ~EventSink() = default;

    /// Called on the thread that made the call during which the event happens, before that call returns.
    /// Event names are the object's own. What it raises goes back to the object, which decides what that
    /// means.
    virtual void notify(std::string_view event, std::span<const Value> arguments) = 0;
};

/// For those whom no event concerns.
class Silence final : public EventSink {
  public:
    void notify(std::string_view, std::span<const Value>) override {}
};

/// A running subscription to an object's notifications; it ends when this is destroyed.
class Subscription {
  public:
    virtual ~Subscription() = default;
};

/// The elements of a collection, one after the other. It keeps the collection alive.
class Enumeration {
  public:
    virtual ~Enumeration() = default;

    /// The next element, asked for only now; nothing when there is none left, however often it is asked for.
    /// Raises what the collection raises.
    virtual std::optional<Value> next() = 0;
};

/// A late-bound object: members are reached by name, with positional and named arguments.
///
/// Objects are held by `ObjectPtr` and go away with the last one. None of them may be used from two threads.
class Object : public std::enable_shared_from_this<Object> {
  public:
    Object() noexcept { ++live_; }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() { --live_; }

    /// Reaches a member. For `set` and `set_reference` the last argument is the new value.
    /// Raises 438 for a member that is not there, and whatever the member raises. The spelling of the name is
    /// passed on as it was written; whether case matters is the object's business.
    virtual Value invoke(Access access, std::string_view member, const Arguments& arguments) = 0;

    /// Starts notifying `sink`, which has to outlive the subscription. Raises 459 when the object has no
    /// events.
    virtual std::unique_ptr<Subscription> subscribe(EventSink& sink);

    /// Begins to go through the elements of this collection, in its order:
    ///
    ///     const auto printers = application.get("Printers").enumerate();
    ///     while (const auto printer = printers->next()) ...
    ///
    /// Objects of other programs are asked for their own enumeration. One that has none, as here, is asked
    /// for its `Count`, once, and then for each `Item` from 1 to that. Raises 438 when it has neither, and
    /// what it raises.
    virtual std::unique_ptr<Enumeration> enumerate();

    /// How many objects exist in this process; for tests that look for leaks.
    static long live_objects() noexcept { return live_; }

  private:
    static inline std::atomic<long> live_{0};
};

}  // namespace foliant::automation
