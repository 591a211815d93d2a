#pragma once

#include <utility>
#include <vector>

#include "automation/value.h"
#include "platform/stage/stage.h"

/// The lists that the members with several inputs take.
namespace foliant::members {

inline automation::Value list_of(std::vector<automation::Value> items, std::int32_t lower_bound = 0) {
    automation::Array array;
    array.lower_bound = lower_bound;
    array.items = std::move(items);
    return array;
}

inline void put_files(platform::stage::Stage& stage, const std::vector<const char*>& paths) {
    for (const char* path : paths)
        stage.put_file(path);
}

}  // namespace foliant::members
