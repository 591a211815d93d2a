// The recorded classes in a process of their own: a local server that ends a second after its last object has
// gone and nobody wants it any more. Under the name notepad.exe it is a Notepad that prints a file and ends.

#include <algorithm>
#include <cctype>
#include <string>

#include "platform/win32/text.h"
#include "windows/servers/dialogs.h"
#include "windows/servers/factory.h"
#include "windows/servers/record.h"
#include "windows/servers/recording_object.h"

using namespace foliant::tests::servers;
namespace platform = foliant::platform;

namespace {

constexpr UINT check_ms = 250;
constexpr int idle_checks_before_end = 4;

DWORD cookies[std::size(classes)]{};

void offer_classes() {
    static std::array factories = make_factories();
    for (std::size_t i = 0; i < std::size(classes); ++i) {
        CoRegisterClassObject(classes[i].id, &factories[i], CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                              &cookies[i]);
    }
}

void withdraw_classes() {
    for (const DWORD cookie : cookies)
        CoRevokeClassObject(cookie);
}

bool is_wanted() {
    const HANDLE mutex = OpenMutexW(SYNCHRONIZE, FALSE, server_wanted);
    if (mutex != nullptr) CloseHandle(mutex);
    return mutex != nullptr;
}

void serve_until_idle() {
    int idle_checks = 0;
    SetTimer(nullptr, 0, check_ms, nullptr);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
        if (message.message != WM_TIMER) continue;
        idle_checks = live_objects > 0 || is_wanted() ? 0 : idle_checks + 1;
        if (idle_checks > idle_checks_before_end) return;
    }
}

void print_as_notepad(const std::string& command) {
    Scene scene;
    scene.note(command + " prints on \"" + default_printer() + "\"");
    print_to_pdf(scene, true);
}

bool is_notepad(std::string command) {
    std::transform(command.begin(), command.end(), command.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return command.find("notepad.exe") != std::string::npos;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    if (const std::string command = platform::win32::to_utf8(std::wstring_view(GetCommandLineW()));
        is_notepad(command)) {
        print_as_notepad(command);
        return 0;
    }
    if (FAILED(CoInitialize(nullptr))) return 1;
    // Other clients than the one that happened to start it will come.
    SetEnvironmentVariableW(record_variable, nullptr);
    // Held as long as the process lives, for those who want to know that it has ended.
    CreateMutexW(nullptr, FALSE, server_mutex);
    before_death = withdraw_classes;
    offer_classes();
    serve_until_idle();
    withdraw_classes();
    CoUninitialize();
    return 0;
}
