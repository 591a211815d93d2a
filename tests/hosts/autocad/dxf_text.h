#pragma once

#include <string>
#include <vector>

namespace foliant::hosts::autocad::test {

/// A drawing as text. Each thing in it is a line such as "LINE|8=Walls|10=0|20=0|11=5|21=0"; an
/// exclamation mark stands for a bar in a value.
struct DxfText {
    std::vector<std::string> entities{};
    std::vector<std::string> blocks{};     ///< "BLOCK|2=Door", what is in it, "ENDBLK"
    std::vector<std::string> tables{};     ///< "LAYER|2=Walls|62=1"
    std::vector<std::string> objects{};    ///< "LAYOUT|..."
    std::vector<std::string> variables{};  ///< "$LTSCALE|40=2"
    std::string version = "AC1015";

    std::string text() const;
};

/// The same groups in the binary form of DXF.
std::string binary_form(const std::string& text);

}  // namespace foliant::hosts::autocad::test
