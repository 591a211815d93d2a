#include "hosts/record_object.h"

#include <utility>

#include "automation/coerce.h"

namespace foliant::hosts {

RecordObject::RecordObject(std::string_view application, std::vector<std::string_view> names)
    : LateBound(application), names_(std::move(names)), numbers_(names_.size()) {
    for (std::size_t place = 0; place < names_.size(); ++place)
        add_property(
            names_[place], [this, place] { return numbers_[place]; },
            [this, place](const automation::Value& value) {
                numbers_[place] = automation::to_double(value);
            });
}

}  // namespace foliant::hosts
