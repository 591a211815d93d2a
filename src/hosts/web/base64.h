#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::web {

/// The bytes that a text in Base64 stands for; what is no digit is passed over.
std::string decode_base64(std::string_view text);

}  // namespace foliant::hosts::web
