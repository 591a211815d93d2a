#include "hosts/office/scratch.h"

#include <gtest/gtest.h>

#include "support/scratch_folder.h"

namespace foliant::hosts::office::test {

const std::filesystem::path& engine_folder() {
    static const auto* folder =
        new tests::ScratchFolder;  // never destroyed: the engine writes to it until the end
    return folder->path();
}

std::filesystem::path document(const std::string& name) {
    return std::filesystem::path(OFFICE_DOCUMENTS) / name;
}

bool is_version(const std::string& text) {
    return text.find_first_not_of("0123456789.") == std::string::npos &&
           text.find('.') != std::string::npos && text.find("..") == std::string::npos &&
           text.front() != '.' && text.back() != '.';
}

}  // namespace foliant::hosts::office::test
