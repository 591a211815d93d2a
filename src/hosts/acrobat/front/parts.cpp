#include "hosts/acrobat/front/parts.h"

namespace foliant::hosts::acrobat::front {

namespace {

constexpr char inside = 0;

}  // namespace

const ModuleParts& parts() {
    static const ModuleParts all(&inside);
    return all;
}

containment::Paths files_of_parts() {
    return {parts().file(engine_part.file), parts().file(text_part.file), parts().file(tiff_part.file)};
}

}  // namespace foliant::hosts::acrobat::front
