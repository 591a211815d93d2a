#pragma once

#include <filesystem>
#include <string>

namespace foliant::hosts {

/// The caption of Acrobat's window on a PDF file: "Adobe Acrobat - [Report.pdf]".
inline std::string viewer_caption(const std::filesystem::path& pdf) {
    return "Adobe Acrobat - [" + pdf.filename().string() + "]";
}

}  // namespace foliant::hosts
