#include "hosts/process/kept_record.h"

#include <algorithm>
#include <utility>

#include "automation/coerce.h"
#include "automation/text.h"

namespace foliant::hosts::process {

using automation::Access;
using automation::Value;

void KeptRecord::read(Reader& message) {
    for (auto count = message.count(); count > 0; --count) {
        std::string name = message.text();
        fields_.push_back({std::move(name), message.number<double>(), false});
    }
}

std::optional<Value> KeptRecord::invoke(Access access, std::string_view member,
                                        const automation::Arguments& arguments) {
    const auto field = std::ranges::find_if(
        fields_, [&](const Field& one) { return automation::equal_ignoring_case(one.name, member); });
    if (field == fields_.end()) return std::nullopt;
    if (access == Access::set && arguments.size() == 1) {
        field->number = automation::to_double(arguments.front().value);
        field->is_new = true;
        return Value();
    }
    if ((access != Access::get && access != Access::call) || !arguments.empty()) return std::nullopt;
    return Value(field->number);
}

void KeptRecord::put_news(Writer& message) {
    message.put(static_cast<std::uint32_t>(std::ranges::count(fields_, true, &Field::is_new)));
    for (std::uint32_t place = 0; place < fields_.size(); ++place)
        if (std::exchange(fields_[place].is_new, false)) message.put(place).put(fields_[place].number);
}

void put_record(Writer& message, const RecordObject* record) {
    message.put(static_cast<std::uint32_t>(record == nullptr ? 0 : record->names().size()));
    if (record == nullptr) return;
    for (std::size_t place = 0; place < record->names().size(); ++place)
        message.put(record->names()[place]).put(record->number(place));
}

void read_news(Reader& message, RecordObject* record) {
    for (auto count = message.count(); count > 0; --count) {
        const auto place = message.number<std::uint32_t>();
        if (record == nullptr || place >= record->names().size()) throw Garbled();
        record->set_number(place, message.number<double>());
    }
}

}  // namespace foliant::hosts::process
