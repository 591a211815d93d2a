#include "hosts/office/engine/installation.h"

#include <fstream>
#include <iterator>

namespace foliant::hosts::office {

namespace {

std::string text_between(std::string_view text, std::string_view before, std::string_view after) {
    const std::size_t start = text.find(before);
    if (start == std::string_view::npos) return {};
    const std::size_t end = text.find(after, start + before.size());
    if (end == std::string_view::npos) return {};
    return std::string(text.substr(start + before.size(), end - start - before.size()));
}

}  // namespace

const std::filesystem::path& office_folder() {
    static const std::filesystem::path folder = FOLIANT_LIBREOFFICE;
    return folder;
}

std::string office_version(const std::filesystem::path& folder) {
    std::ifstream file(folder / "share/registry/main.xcd", std::ios::binary);
    const std::string settings(std::istreambuf_iterator<char>(file), {});
    // The same name also stands in the schema part of the file, there with a type; hence the closing bracket.
    const std::string property = text_between(settings, "oor:name=\"ooSetupVersionAboutBox\">", "</prop>");
    return text_between(property, "<value>", "</value>");
}

std::string ini_value(const std::filesystem::path& file, std::string_view key) {
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(key) && line.size() > key.size() && line[key.size()] == '=')
            return line.substr(key.size() + 1);
    return {};
}

}  // namespace foliant::hosts::office
