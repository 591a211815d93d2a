#include "windows/servers/scene.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/text.h"
#include "windows/servers/classes.h"
#include "windows/servers/record.h"

namespace foliant::tests::servers {
namespace {

std::wstring plan_path(const std::wstring& folder) {
    return folder + L"foliant-failure.txt";
}

std::wstring only_client_path() {
    return record_folder() + L"foliant-only-client.txt";
}

void write_file(const std::wstring& path, const std::string& text) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

bool exists(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// The lines of a record that are a client's doing.
int count_actions(const std::string& lines) {
    int count = 0;
    for (std::size_t start = 0; start < lines.size(); start = lines.find('\n', start) + 1) {
        const std::string line = lines.substr(start, lines.find('\n', start) - start);
        const auto has = [&](const char* text) { return line.find(text) != std::string::npos; };
        if (has(") METHOD") || has(") PUT") || line.starts_with("listen to ") ||
            (line.starts_with("create ") && !is_made(line.substr(std::string_view("create ").size()))))
            ++count;
    }
    return count;
}

}  // namespace

Scene::Scene() {
    const bool in_client = GetEnvironmentVariableW(record_variable, nullptr, 0) != 0;
    folder_ = in_client ? record_folder() : platform::win32::to_utf16(read_file(only_client_path()));
}

Scene::~Scene() {
    if (folder_.empty()) folder_ = record_folder();
    write_held_lines();
}

void Scene::see(const std::wstring& document) {
    if (!folder_.empty()) return;
    const std::wstring folder = document.substr(0, document.rfind(L'\\') + 1);
    folder_ = exists(record_path(folder)) ? folder : record_folder();
    write_held_lines();
}

Ending Scene::act(const std::string& action) {
    const Ending ending = planned_ending();
    note(ending == Ending::good ? action : action + " fails");
    return ending;
}

/// How the action that comes next is to end.
Ending Scene::planned_ending() const {
    const std::wstring folder = folder_.empty() ? record_folder() : folder_;
    const std::string plan = read_file(plan_path(folder));
    if (plan.empty()) return Ending::good;
    const int before = count_actions(read_file(record_path(folder))) + static_cast<int>(held_.size());
    if (before + 1 != std::atoi(plan.c_str())) return Ending::good;
    return static_cast<Ending>(std::atoi(plan.c_str() + plan.find(' ')));
}

void Scene::note(const std::string& line) {
    held_.push_back(line);
    if (!folder_.empty()) write_held_lines();
}

void Scene::write_held_lines() {
    for (const std::string& line : held_)
        record(folder_, line);
    held_.clear();
}

void let_fail(const std::wstring& folder, int k, Ending ending) {
    DeleteFileW(plan_path(folder).c_str());
    if (ending == Ending::good) return;
    write_file(plan_path(folder), std::to_string(k) + " " + std::to_string(static_cast<int>(ending)));
}

void serve_only(const std::wstring& folder) {
    if (folder.empty()) {
        DeleteFileW(only_client_path().c_str());
    } else {
        write_file(only_client_path(), platform::win32::to_utf8(folder));
    }
}

}  // namespace foliant::tests::servers
