#include "windows/clients/call_file.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <windows.h>

#include "platform/win32/text.h"
#include "windows/clients/client_run.h"

namespace foliant::tests::clients {

CallFile call_file(const std::string& name) {
    std::istringstream lines(file_beside("calls/" + name + ".txt"));
    CallFile file;
    file.name = name;
    for (std::string line; std::getline(lines, line) && !line.empty();) {
        const auto colon = line.find(": ");
        const std::string key = line.substr(0, colon);
        const std::string value = line.substr(colon + 2);
        if (key == "call") file.call = value;
        if (key == "makes") file.makes = value;
        if (key == "window") file.window = value;
        if (key == "early-bound") file.early_bound = value == "yes";
        if (key == "client") file.client = value;
        if (key == "alone") file.alone = value.substr(std::string_view("until ").size());
        if (key == "apart") file.apart = value == "yes";
    }
    std::ostringstream rest;
    rest << lines.rdbuf();
    file.expected = rest.str();
    if (file.call.empty()) throw std::runtime_error("no call in calls/" + name + ".txt");
    return file;
}

CallFile with(CallFile file, const std::string& argument, const std::string& other) {
    file.call.replace(file.call.find(argument), argument.size(), other);
    return file;
}

std::vector<CallFile> all_call_files() {
    WIN32_FIND_DATAW found{};
    const std::wstring pattern = path_beside(L"calls/*.txt");
    const HANDLE search = FindFirstFileW(pattern.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) throw std::runtime_error("no calls");
    std::vector<CallFile> files;
    do {
        const std::string name = platform::win32::to_utf8(std::wstring_view(found.cFileName));
        files.push_back(call_file(name.substr(0, name.rfind('.'))));
    } while (FindNextFileW(search, &found) != FALSE);
    FindClose(search);
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
    return files;
}

}  // namespace foliant::tests::clients
