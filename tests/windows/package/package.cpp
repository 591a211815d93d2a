#include "windows/package/package.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace foliant::tests::package {

namespace fs = std::filesystem;

void Package::unpack() {
    const char* package = std::getenv("FOLIANT_PACKAGE");
    ASSERT_NE(package, nullptr) << "run it by scripts/in-own-prefix";
    // A server that has just been used may still hold the folder of the test before.
    static int tests = 0;
    folder_ = "C:\\Tom & Ann (new)\\Foliant " + std::to_string(++tests);
    fs::create_directories(folder());
    fs::copy(std::string("Z:") + package, folder(), fs::copy_options::recursive);
    // Every user of a Windows has these.
    for (const wchar_t* key :
         {L"CLSID", L"Interface", L"TypeLib", L"Wow6432Node\\CLSID", L"Wow6432Node\\Interface"}) {
        HKEY made = nullptr;
        RegCreateKeyW(HKEY_CURRENT_USER, (std::wstring(L"Software\\Classes\\") + key).c_str(), &made);
        RegCloseKey(made);
    }
}

Outcome Package::run(const std::string& command) {
    fs::current_path(folder());
    // Another file each time: what a command has started may still hold its own.
    static int commands = 0;
    const fs::path output = fs::temp_directory_path() / ("output-" + std::to_string(++commands) + ".txt");
    Outcome outcome;
    outcome.code = std::system((command + " > \"" + output.string() + "\" 2>&1").c_str());
    std::ifstream file(output);
    outcome.output.assign(std::istreambuf_iterator<char>(file), {});
    std::erase(outcome.output, '\r');
    return outcome;
}

std::vector<std::string> Package::script_hosts() {
    std::vector<std::string> hosts{"cscript //nologo"};
    if (sizeof(void*) == 8 && fs::exists(folder() / "x86"))
        hosts.emplace_back("C:\\windows\\SysWOW64\\cscript.exe //nologo");
    return hosts;
}

}  // namespace foliant::tests::package
