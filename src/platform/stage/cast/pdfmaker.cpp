#include "automation/coerce.h"
#include "automation/text.h"
#include "platform/stage/cast/cast.h"
#include "platform/stage/stage_object.h"

namespace foliant::platform::stage {

using automation::Arguments;
using automation::Value;

void cast_pdfmaker(Stage& stage) {
    stage.when("AdobePDFMakerX.Word.LaunchDocument", [](StageObject& self, const Arguments& arguments) {
        Stage& world = self.stage();
        const std::string source = automation::to_text(arguments.at(0).value);
        const std::string name(automation::file_name_part(source, world.separator));
        world.windows["Adobe Acrobat Professional - [" + name.substr(0, name.find('.') + 1) + "pdf]"] =
            world.now;
        return Value(std::int32_t{0});
    });
}

}  // namespace foliant::platform::stage
