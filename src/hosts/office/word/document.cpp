#include "hosts/office/word/document.h"

#include "automation/coerce.h"
#include "hosts/office/word/word_error.h"

namespace foliant::hosts::office {

automation::Error no_such_margin(const std::filesystem::path& document, float points) {
    return microsoft_word.error(microsoft_word.value_out_of_range,
                                "A margin of " + automation::to_text(points) +
                                    " points leaves no room for the text of " + document.string() +
                                    ". Give 0 or more, and less than the page has.");
}

}  // namespace foliant::hosts::office
