#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

/// Late-bound values, objects, arguments, errors and events. This room knows no other.
namespace foliant::automation {

class Object;
class Enumeration;
struct Argument;
struct Array;

using ObjectPtr = std::shared_ptr<Object>;
using ArrayPtr = std::shared_ptr<const Array>;
using Arguments = std::vector<Argument>;

/// A variable that was never given anything.
struct Empty {
    bool operator==(const Empty&) const = default;
};

/// An optional argument that the caller left out.
struct Missing {
    bool operator==(const Missing&) const = default;
};

/// "No valid data", as databases say it; no text, number or truth value comes from it.
struct Null {
    bool operator==(const Null&) const = default;
};

/// One automation value with its exact type: a 16-bit 1 and a 32-bit 1 are different values, and so are an
/// empty one, a missing one and an empty text.
///
/// Text is UTF-8. Arrays are shared and never changed after they were made. An object that is null is
/// "Nothing".
class Value {
  public:
    using Storage = std::variant<Empty, Missing, Null, bool, std::int16_t, std::int32_t, float, double,
                                 std::string, ObjectPtr, ArrayPtr>;

    Value() = default;
    Value(Empty) {}
    Value(Missing missing) : storage_(missing) {}
    Value(Null null) : storage_(null) {}
    Value(bool truth) : storage_(truth) {}
    Value(std::int16_t number) : storage_(number) {}
    Value(std::int32_t number) : storage_(number) {}
    Value(float number) : storage_(number) {}
    Value(double number) : storage_(number) {}
    Value(std::string text) : storage_(std::move(text)) {}
    Value(std::string_view text) : storage_(std::string(text)) {}
    Value(const char* text) : storage_(std::string(text)) {}
    Value(ObjectPtr object) : storage_(std::move(object)) {}
    template <class Derived>
    requires std::is_convertible_v<std::shared_ptr<Derived>, ObjectPtr> Value(std::shared_ptr<Derived> object)
        : storage_(ObjectPtr(std::move(object))) {}
    Value(Array array);

    template <class T>
    bool holds() const noexcept {
        return std::holds_alternative<T>(storage_);
    }
    template <class T>
    const T* if_holds() const noexcept {
        return std::get_if<T>(&storage_);
    }
    const Storage& storage() const noexcept { return storage_; }

    /// The object inside. Raises 424 when there is none and 91 when it is Nothing.
    Object& object() const;

    /// Reads a member of the object inside, `Documents` or `Sections(1)`; raises what `object` and the member
    /// raise.
    Value get(std::string_view member) const;
    Value get(std::string_view member, const Arguments& arguments) const;
    /// Calls a method of the object inside.
    Value call(std::string_view member) const;
    Value call(std::string_view member, const Arguments& arguments) const;
    /// Assigns a property of the object inside.
    void set(std::string_view member, const Value& value) const;
    /// Assigns an object reference to a property of the object inside.
    void set_reference(std::string_view member, const Value& value) const;

    /// Begins to go through the elements of the object inside (see `Object::enumerate`).
    std::unique_ptr<Enumeration> enumerate() const;

    /// Equal type and equal content; objects are equal when they are the same object.
    bool operator==(const Value& other) const;

  private:
    Storage storage_;
};

/// A one-dimensional array with its own lower bound.
struct Array {
    /// What the elements were declared as; an array of texts and an array of any values differ to callers.
    enum class Element { any, text };

    std::int32_t lower_bound = 0;
    std::vector<Value> items;
    Element element = Element::any;

    /// The last valid index; one below `lower_bound` when the array is empty.
    std::int32_t upper_bound() const noexcept {
        return static_cast<std::int32_t>(lower_bound + static_cast<std::int64_t>(items.size()) - 1);
    }

    /// The element at an index between the two bounds; raises 9 outside them.
    const Value& at(std::int32_t index) const;
};

/// One argument of a late-bound call: positional when its name is empty.
struct Argument {
    std::string name;
    Value value;

    template <class T>
    requires(std::is_constructible_v<Value, T> && !std::is_same_v<std::remove_cvref_t<T>, Argument>)
        Argument(T&& positional)
        : value(std::forward<T>(positional)) {}
    Argument(std::string_view argument_name, Value argument_value)
        : name(argument_name), value(std::move(argument_value)) {}
};

/// A named argument; those follow the positional ones and go out in the order written.
inline Argument named(std::string_view name, Value value) {
    return {name, std::move(value)};
}

}  // namespace foliant::automation
