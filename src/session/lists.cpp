#include "session/lists.h"

#include <utility>

#include "automation/array_bounds.h"

namespace foliant::session {

using automation::Array;
using automation::ArrayPtr;
using automation::Error;
using automation::RuntimeError;
using automation::Value;

ArrayPtr array_of(const Value& list) {
    const auto* array = list.if_holds<ArrayPtr>();
    if (array == nullptr) throw Error(RuntimeError::type_mismatch);
    if (!automation::has_bounds(**array)) throw Error(RuntimeError::subscript_out_of_range);
    return *array;
}

Value item_at(const Value& list, std::int32_t index) {
    return array_of(list)->at(index);
}

void TemporaryFiles::put(std::int32_t index, std::string path) {
    if (index < 0) throw Error(RuntimeError::subscript_out_of_range);
    const auto place = static_cast<std::size_t>(index);
    if (place >= paths_.size()) paths_.resize(place + 1);
    paths_[place] = std::move(path);
}

Value TemporaryFiles::list() const {
    Array array;
    array.element = Array::Element::text;
    array.items.assign(paths_.begin(), paths_.end());
    return array;
}

void TemporaryFiles::remove(const Session& session) const {
    for (const std::string& path : paths_) {
        if (!path.empty()) session.outside().files.remove(path);
    }
}

void TemporaryFiles::remove_if_exist(const Session& session) const {
    for (const std::string& path : paths_)
        session.remove_if_exists(path);
}

}  // namespace foliant::session
