#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "hosts/process/wire.h"
#include "hosts/record_object.h"

namespace foliant::hosts::process {

/// The numbers of the other side's record, on this side.
class KeptRecord {
  public:
    /// Reads what `put_record` wrote.
    void read(Reader& message);

    /// What reading or assigning a number gives; nothing for any other call.
    std::optional<automation::Value> invoke(automation::Access access, std::string_view member,
                                            const automation::Arguments& arguments);

    /// Writes the numbers that the other side does not have yet.
    void put_news(Writer& message);

  private:
    struct Field {
        std::string name;
        double number;
        bool is_new;
    };
    std::vector<Field> fields_;
};

/// Writes a record's numbers; none for null.
void put_record(Writer& message, const RecordObject* record);

/// Takes over what `put_news` wrote. Throws Garbled for numbers that the record, which may be null, does not have.
void read_news(Reader& message, RecordObject* record);

}  // namespace foliant::hosts::process
