#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "automation/error.h"
#include "automation/value.h"
#include "session/session.h"

namespace foliant::session {

// Lists of inputs are arrays with bounds of the caller's choice; parallel arrays share one index.

/// The array in `list`. Raises 13 when it holds none: a single value, an argument that was left out; 9 when it
/// has no bounds (see automation/array_bounds.h).
automation::ArrayPtr array_of(const automation::Value& list);

/// Element `index` of an array that runs beside another one. Raises 13 when `list` is no array, 9 when the
/// index lies outside its own bounds.
automation::Value item_at(const automation::Value& list, std::int32_t index);

/// Walks a list from its lower to its upper bound. `action` takes the index and the element, or the element
/// alone; what it raises ends the walk.
///
/// `Counter` is how wide the member that walks has its counter, and wide it has to stay: with
/// `std::int16_t` more than 32767 elements, or a bound that 16 bits do not hold, raise 6 before any element
/// is visited. Raises 13 when `list` is no array, 9 when it has no bounds.
template <std::signed_integral Counter, class Action>
void for_each_item(const automation::Value& list, Action&& action) {
    using Limits = std::numeric_limits<Counter>;
    const automation::ArrayPtr array = array_of(list);
    const std::int64_t upper = array->upper_bound();
    const bool fits = array->lower_bound >= Limits::min() && upper <= Limits::max() &&
                      array->items.size() <= static_cast<std::size_t>(Limits::max());
    if (!fits) throw automation::Error(automation::RuntimeError::overflow);
    for (std::int64_t index = array->lower_bound; index <= upper; ++index) {
        const automation::Value& item = array->at(static_cast<std::int32_t>(index));
        if constexpr (std::is_invocable_v<Action&, Counter, const automation::Value&>) {
            action(static_cast<Counter>(index), item);
        } else {
            action(item);
        }
    }
}

/// The temporary files of a member with several inputs, one for each, under the index of its input.
class TemporaryFiles {
  public:
    /// Puts a path at `index`, after growing the list to the indices 0 to `index`; what was in it stays.
    /// Elements that were never put are empty texts: with inputs from 1 on, that is element 0. Raises 9 for
    /// a negative index.
    void put(std::int32_t index, std::string path);

    /// Puts a path behind the last one.
    void append(std::string path) { paths_.push_back(std::move(path)); }

    /// How many elements the list has, those that were never put included.
    std::size_t size() const noexcept { return paths_.size(); }

    /// The list as the merging members take it: an array of texts that begins at 0.
    automation::Value list() const;

    /// Deletes the files in the order of the list; empty elements are passed over. Raises 53 for one that is
    /// not there, and what deleting raises; the files after it stay.
    void remove(const Session& session) const;

    /// The same for members whose inputs do not all make a file: one that is not there is passed over, too.
    void remove_if_exist(const Session& session) const;

  private:
    std::vector<std::string> paths_;
};

}  // namespace foliant::session
