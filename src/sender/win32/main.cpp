// quorixsend.exe: waits for one dialog of another program and answers it.
//
//     quorixsend.exe caption~class~text~A~B~
//
// Gives up when the process that started it has ended, after 10 minutes, or after as many seconds as
// QUORIXSEND_LIMIT says (1 to 86400). Exit codes: 0 done, 1 the program failed, 2 the command cannot be read,
// 3 no such dialog came, 4 the dialog did not close.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <windows.h>

#include "sender/command.h"
#include "sender/sender.h"
#include "sender/win32/message.h"
#include "sender/win32/real_windows.h"

namespace {

using namespace foliant::sender;

constexpr long longest_limit_seconds = 86400;

Timing timing() {
    Timing usual;
    const char* limit = std::getenv("QUORIXSEND_LIMIT");
    const long seconds = limit == nullptr ? 0 : std::strtol(limit, nullptr, 10);
    if (seconds > 0 && seconds <= longest_limit_seconds) usual.limit = std::chrono::seconds(seconds);
    return usual;
}

ExitCode run() {
    const std::string line = win32::to_utf8(GetCommandLineW());
    Sender sender(parse(command_tail(line)), timing());
    win32::RealWindows windows;
    return sender.run(windows);
}

/// Seen only by who started it with a place for errors: the program has no console of its own.
void complain(const char* text) {
    std::fprintf(stderr, "%s\n", text);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    ExitCode code = ExitCode::failed;
    try {
        code = run();
    } catch (const CommandError& error) {
        complain(error.what());
        code = ExitCode::malformed;
    } catch (const std::exception& error) {
        complain(error.what());
    }
    return static_cast<int>(code);
}
