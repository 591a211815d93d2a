#include <utility>

#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

void cast_transfer_control(Stage& stage) {
    // True the first time that it is read after a command, and false from then on.
    const auto executing = std::make_shared<bool>(false);
    stage.when("InetCtls.Inet.Execute", [executing](StageObject&, const Arguments&) {
        *executing = true;
        return Value();
    });
    stage.when("InetCtls.Inet.StillExecuting", [executing](StageObject&, const Arguments&) {
        return Value(std::exchange(*executing, false));
    });
}

}  // namespace foliant::platform::stage
