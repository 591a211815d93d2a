#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "hosts/late_bound.h"

namespace foliant::hosts {

/// An object that is nothing but numbers with names, as a rectangle is. Only who has created it assigns them. In
/// another process they are kept there, and go back with the calls that the object is an argument of: reading and
/// assigning them takes no call between the processes.
class RecordObject : public LateBound {
  public:
    /// Numbers that are 0 to begin with. The names' texts have to outlive the object.
    RecordObject(std::string_view application, std::vector<std::string_view> names);

    const std::vector<std::string_view>& names() const noexcept { return names_; }
    double number(std::size_t place) const { return numbers_.at(place); }
    void set_number(std::size_t place, double number) { numbers_.at(place) = number; }

  private:
    std::vector<std::string_view> names_;
    std::vector<double> numbers_;
};

}  // namespace foliant::hosts
