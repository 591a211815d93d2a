#include "hosts/office/errors.h"

#include <utility>

namespace foliant::hosts::office {

using automation::Error;

namespace {

constexpr const char* source = "Microsoft Word";

}  // namespace

Error word_error(WordError number, std::string description) {
    return {static_cast<std::int32_t>(number), source, std::move(description)};
}

Error word_error(automation::RuntimeError number, std::string description) {
    return {static_cast<std::int32_t>(number), source, std::move(description)};
}

}  // namespace foliant::hosts::office
