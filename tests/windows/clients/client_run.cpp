#include "windows/clients/client_run.h"

#include <fstream>
#include <regex>
#include <sstream>
#include <utility>

#include "platform/win32/text.h"
#include "windows/clients/script_call.h"
#include "windows/servers/record.h"

namespace foliant::tests::clients {

using platform::win32::to_utf16;
using platform::win32::to_utf8;
using servers::Ending;

namespace {

constexpr DWORD patience_ms = 120000;
constexpr const wchar_t* said = L"said.txt";

/// Where the build has put a file, as Windows programs call it.
std::wstring built(const wchar_t* path) {
    wchar_t full[MAX_PATH];
    GetFullPathNameW(path, MAX_PATH, full, nullptr);
    return full;
}

std::wstring quoted(const std::wstring& text) {
    std::wstring result = L"\"";
    for (const wchar_t c : text)
        result += c == L'"' ? std::wstring(L"\\\"") : std::wstring(1, c);
    return result + L"\"";
}

/// Puts the call into a client's script, and the script into the folder.
std::wstring script(const std::wstring& folder, const std::string& client, const std::string& mark,
                    const std::string& call) {
    std::string text = file_beside(client);
    text.replace(text.find(mark), mark.size(), call);
    std::ofstream(to_utf8(folder) + client, std::ios::binary) << text;
    return L"cscript.exe //nologo " + quoted(folder + to_utf16(client));
}

std::wstring command_of(Client client, const CallFile& file, const std::wstring& folder) {
    const std::wstring last = L" " + quoted(folder.substr(0, folder.size() - 1));
    switch (client) {
        case Client::vbscript:
            return script(folder, "client.vbs", "' THE CALL", vbscript_call(file.call)) + last;
        case Client::jscript:
            return script(folder, "client.js", "// THE CALL", jscript_call(file.call)) + last;
        case Client::late_bound:
            return quoted(built(LATE_BOUND_CLIENT)) + L" " + quoted(to_utf16(file.call)) + last + L" " +
                   quoted(to_utf16(file.window));
        case Client::early_bound:
            return quoted(built(EARLY_BOUND_CLIENT)) + L" " + quoted(to_utf16(file.name)) + last;
    }
    return {};
}

void remove_folder(const std::wstring& folder) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder + L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        DeleteFileW((folder + found.cFileName).c_str());
    } while (FindNextFileW(search, &found) != FALSE);
    FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

HANDLE output_file(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                       CREATE_ALWAYS, 0, nullptr);
}

void replace_all(std::string& text, const std::string& what, const std::string& by) {
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

}  // namespace

std::string name_of(Client client) {
    constexpr const char* names[]{"VBScript", "JScript", "LateBoundCpp", "EarlyBoundCpp"};
    return names[static_cast<int>(client)];
}

std::wstring ClientRun::folder_of(const std::string& name) {
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    return std::wstring(temporary) + L"foliant client " + to_utf16(name) + L"\\";
}

void ClientRun::prepare(const std::string& folder, const char* file, const std::string& text) {
    CreateDirectoryW(folder_of(folder).c_str(), nullptr);
    std::ofstream(to_utf8(folder_of(folder)) + file, std::ios::binary) << text;
}

ClientRun::ClientRun(Client client, const CallFile& call, const std::string& folder, int k, Ending ending)
    : folder_(folder_of(folder)) {
    prepare(folder, "in.pdf", "%PDF-1.4\r\n");
    prepare(folder, "in.ps", "%!PS\r\n%log A line of the log\r\n");
    prepare(folder, "in.doc", "words");
    // A host in another process knows a client's folder by this.
    prepare(folder, "foliant-record.txt", "");
    servers::let_fail(folder_, k, k == 0 ? Ending::good : ending);
    command_ = command_of(client, call, folder_);
    start();
}

ClientRun::ClientRun(ClientRun&& other) noexcept
    : folder_(std::exchange(other.folder_, {})),
      command_(std::move(other.command_)),
      attempts_(other.attempts_),
      process_(std::exchange(other.process_, nullptr)) {}

ClientRun::~ClientRun() {
    if (process_ != nullptr) {
        if (WaitForSingleObject(process_, 0) != WAIT_OBJECT_0) TerminateProcess(process_, 99);
        CloseHandle(process_);
    }
    if (!folder_.empty()) remove_folder(folder_);
}

void ClientRun::start() {
    ++attempts_;
    if (process_ != nullptr) CloseHandle(std::exchange(process_, nullptr));
    const HANDLE output = output_file(folder_ + said);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    startup.hStdError = output;
    PROCESS_INFORMATION started{};
    std::wstring line = command_;
    SetEnvironmentVariableW(servers::record_variable, folder_.c_str());
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &started) != 0) {
        process_ = started.hProcess;
        CloseHandle(started.hThread);
    }
    SetEnvironmentVariableW(servers::record_variable, nullptr);
    CloseHandle(output);
}

/// Wine's script host sometimes ends before it has begun to run a script, without a word, when several are
/// started at a time; it is then started again.
bool ClientRun::has_ended(DWORD wait_ms) {
    constexpr int most_attempts = 5;
    if (WaitForSingleObject(process_, wait_ms) != WAIT_OBJECT_0) return false;
    const bool has_begun = !servers::read_file(folder_ + said).empty() ||
                           !servers::read_file(servers::record_path(folder_)).empty();
    if (has_begun || attempts_ == most_attempts) return true;
    start();
    return false;
}

void ClientRun::wait_for(const std::string& text) {
    constexpr DWORD pause_ms = 50;
    while (servers::read_file(servers::record_path(folder_)).find(text) == std::string::npos &&
           !has_ended(pause_ms)) {
    }
}

std::string ClientRun::result() {
    constexpr DWORD round_ms = 1000;
    DWORD code = 0;
    bool ended = false;
    for (DWORD waited = 0; waited < patience_ms && !ended; waited += round_ms)
        ended = has_ended(round_ms);
    GetExitCodeProcess(process_, &code);
    std::string text = servers::read_file(servers::record_path(folder_)) + servers::read_file(folder_ + said);
    replace_all(text, "\r", "");
    replace_all(text, to_utf8(folder_), "");
    std::string slashes = to_utf8(folder_);
    replace_all(slashes, "\\", "/");
    replace_all(text, slashes, "");
    text = std::regex_replace(text, std::regex("\"[0-9]{1,8}\\.(ps|pdf)\""), "\"(digits).$1\"");
    if (!ended) text += "and does not end\n";
    if (ended && code != 0) text += "and ends with " + std::to_string(code) + "\n";
    return text;
}

bool ClientRun::has(const wchar_t* file) const {
    return GetFileAttributesW((folder_ + file).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string without(std::string text, const std::string& beginning) {
    std::istringstream lines(std::exchange(text, {}));
    for (std::string line; std::getline(lines, line);)
        if (!line.starts_with(beginning)) text += line + "\n";
    return text;
}

std::string expected_of(Client client, const CallFile& call) {
    std::string text = call.expected;
    if (client != Client::late_bound) text = without(text, "window ");
    if (client == Client::vbscript || client == Client::jscript) text = without(text, "event ");
    if (client == Client::jscript) text = without(text, "printer ");
    return text;
}

std::wstring path_beside(const std::wstring& name) {
    return built((CLIENTS_FOLDER L"/" + name).c_str());
}

std::string file_beside(const std::string& name) {
    std::ifstream stream(to_utf8(path_beside(to_utf16(name))));
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::string expected(const std::string& file) {
    return file_beside("expected/" + file);
}

}  // namespace foliant::tests::clients
