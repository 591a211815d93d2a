#include "hosts/acrobat/images/content.h"

namespace foliant::hosts::acrobat::images {

Content::Content(std::string bytes) {
    auto owner = std::make_shared<const std::string>(std::move(bytes));
    bytes_ = *owner;
    owner_ = std::move(owner);
}

}  // namespace foliant::hosts::acrobat::images
