#include "hosts/office/scratch.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace foliant::hosts::office::test {

namespace {

std::filesystem::path make_folder() {
    std::string name = (std::filesystem::temp_directory_path() / "office-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
    return name;
}

}  // namespace

Scratch::Scratch() : path_(make_folder()) {}

Scratch::~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string Scratch::content() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
        names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

namespace {

/// Removes the engine's folder after the last test, while the engine still runs: main ends without
/// destructors.
class EngineFolder : public testing::Environment {
  public:
    const std::filesystem::path& path() const { return folder_->path(); }
    void TearDown() override { folder_.reset(); }

  private:
    std::unique_ptr<Scratch> folder_ = std::make_unique<Scratch>();
};

}  // namespace

const std::filesystem::path& engine_folder() {
    static auto* folder = new EngineFolder;
    static const bool registered = testing::AddGlobalTestEnvironment(folder) != nullptr;
    (void)registered;
    return folder->path();
}

std::filesystem::path document(const std::string& name) {
    return std::filesystem::path(OFFICE_DOCUMENTS) / name;
}

automation::Error error_of(const std::function<void()>& action) {
    try {
        action();
    } catch (const automation::Error& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return {0, "", ""};
}

std::string read_file(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write_file(const std::filesystem::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

}  // namespace foliant::hosts::office::test
