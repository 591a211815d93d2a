#include "support/scratch_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace foliant::tests {

namespace fs = std::filesystem;

namespace {

fs::path make_folder() {
    std::random_device random;
    fs::path path;
    do
        path = fs::temp_directory_path() / ("foliant-test-" + std::to_string(random()));
    while (!fs::create_directory(path));
    fs::permissions(path, fs::perms::owner_all);
    return path;
}

}  // namespace

ScratchFolder::ScratchFolder() : path_(make_folder()) {}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

fs::path ScratchFolder::write(const fs::path& name, std::string_view content) const {
    fs::path path = path_ / name;
    write_file(path, content);
    return path;
}

void write_file(const fs::path& path, std::string_view content) {
    std::ofstream file(path, std::ios::binary);
    file << content;
    if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

std::string read_file(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

Names names_in(const fs::path& folder) {
    Names names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace foliant::tests
