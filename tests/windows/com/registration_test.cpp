#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "platform/win32/text.h"
#include "windows/com/component.h"

namespace foliant::com {
namespace {

using platform::win32::to_utf8;

constexpr wchar_t class_key[] = L"CLSID\\{3CDA1E1E-199C-41A5-A97C-FA83395CF432}";
constexpr wchar_t program_key[] = L"Foliant.BuildPDF";
constexpr wchar_t library_key[] = L"TypeLib\\{CF137980-E15E-41F9-87B0-CD3A4A19C5E2}";
constexpr wchar_t interface_key[] = L"Interface\\{7D0597EB-9FF3-4D00-8957-BAEA326BC0BF}";
constexpr wchar_t events_key[] = L"Interface\\{8CF420DE-C4A7-4EF9-A23E-10CE212E5D82}";

bool exists(const wchar_t* key) {
    HKEY opened = nullptr;
    const bool found = RegOpenKeyExW(HKEY_CLASSES_ROOT, key, 0, KEY_READ, &opened) == ERROR_SUCCESS;
    if (found) RegCloseKey(opened);
    return found;
}

std::wstring text_at(const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t text[MAX_PATH] = L"";
    DWORD size = sizeof text;
    RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &size);
    return text;
}

void expect_nothing_registered() {
    for (const wchar_t* key : {class_key, program_key, library_key, interface_key, events_key})
        EXPECT_FALSE(exists(key)) << to_utf8(key);
}

std::string read_file(const std::string& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// What a script prints.
std::string run_script(const std::string& name) {
    const auto script = (std::filesystem::path(SCRIPTS_FOLDER) / name).make_preferred().string();
    const std::string command = "cscript //nologo \"" + script + "\" > \"" + name + ".out\" 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    const std::string output = read_file(name + ".out");
    DeleteFileA((name + ".out").c_str());
    return output;
}

int regsvr32(const std::wstring& options) {
    return _wsystem((L"regsvr32 /s " + options + L" \"" + Component::path() + L"\"").c_str());
}

class Registration : public testing::Test {
  protected:
    void SetUp() override { component_.unregister_server(); }
    void TearDown() override { component_.unregister_server(); }

    Component component_;
};

TEST_F(Registration, WritesClassProgramIdTypeLibraryAndInterfaces) {
    ASSERT_EQ(component_.register_server(), S_OK);
    const std::wstring key = class_key;
    EXPECT_EQ(text_at(key + L"\\InprocServer32"), Component::path());
    EXPECT_EQ(text_at(key + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
    EXPECT_EQ(text_at(key + L"\\ProgID"), program_key);
    EXPECT_EQ(text_at(key + L"\\TypeLib"), L"{CF137980-E15E-41F9-87B0-CD3A4A19C5E2}");
    EXPECT_EQ(text_at(std::wstring(program_key) + L"\\Clsid"), L"{3CDA1E1E-199C-41A5-A97C-FA83395CF432}");
    EXPECT_EQ(
        text_at(std::wstring(library_key) + L"\\1.1\\409\\" + (sizeof(void*) == 8 ? L"win64" : L"win32")),
        Component::path());
    EXPECT_EQ(text_at(interface_key), L"_BuildPDF");
    EXPECT_EQ(text_at(events_key), L"__BuildPDF");
}

TEST_F(Registration, LeavesNothingAfterRemoval) {
    ASSERT_EQ(component_.register_server(), S_OK);
    EXPECT_EQ(component_.unregister_server(), S_OK);
    expect_nothing_registered();
    EXPECT_EQ(component_.unregister_server(), S_OK) << "a second removal";
}

/// A key that exists only until the machine is switched off takes no lasting key below it, so the step that
/// writes the ProgID fails after the class was written.
TEST_F(Registration, AFailingStepLeavesNothingHalfRegistered) {
    HKEY passing = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CLASSES_ROOT, program_key, 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                              nullptr, &passing, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(passing);
    EXPECT_EQ(component_.register_server(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    expect_nothing_registered();
}

class Scripts : public Registration {
  protected:
    void SetUp() override {
        Registration::SetUp();
        ASSERT_EQ(regsvr32(L""), 0);
    }
    void TearDown() override {
        EXPECT_EQ(regsvr32(L"/u"), 0);
        expect_nothing_registered();
    }
};

TEST_F(Scripts, VbscriptReachesTheMembers) {
    EXPECT_EQ(run_script("client.vbs"), read_file(SCRIPTS_FOLDER "/client.vbs.expected"));
}

TEST_F(Scripts, JscriptReachesTheMembers) {
    EXPECT_EQ(run_script("client.js"), read_file(SCRIPTS_FOLDER "/client.js.expected"));
}

}  // namespace
}  // namespace foliant::com
