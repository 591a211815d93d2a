#pragma once

#include <string>

#include "platform/stage/stage_object.h"

namespace foliant::members {

/// What kind of object a call was given; a journal writes them all alike.
inline std::string stage_name_of(const automation::Value& object) {
    return dynamic_cast<const platform::stage::StageObject&>(object.object()).name();
}

}  // namespace foliant::members
