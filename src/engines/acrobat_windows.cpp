#include "engines/acrobat_windows.h"

#include <array>

#include "automation/text.h"

namespace foliant::engines {

using platform::WindowHandle;
using session::Session;

namespace {

constexpr float closing_seconds = 15;

/// What stands before the caption key, in the order in which the editions are looked for.
using Editions = std::array<const char*, 2>;
constexpr Editions editions_to_close{"adobe acrobat - ", "adobe acrobat professional - "};
constexpr Editions editions_to_wait_for{"adobe acrobat - ", "Adobe Acrobat Professional - "};
constexpr Editions main_captions{"adobe acrobat", "adobe acrobat professional"};

/// The first window that is there, 0 when neither is.
WindowHandle find_window(const Session& session, const Editions& editions, const std::string& caption_key) {
    for (const char* edition : editions) {
        if (const auto window = session.outside().windows.find_window(edition + caption_key); window > 0) {
            return window;
        }
    }
    return 0;
}

void close(const Session& session, WindowHandle window) {
    session.outside().windows.close_window(window, "0");
}

}  // namespace

std::string caption_key_of_file(const std::string& path, char separator) {
    const std::string name = automation::to_lower(automation::file_name_part(path, separator));
    // With no dot there is nothing up to and including one.
    const std::size_t through_first_dot = name.find('.') + 1;
    return "[" + name.substr(0, through_first_dot) + "pdf]";
}

std::string caption_key_of_page(const std::string& address) {
    return "[" + address + "/]";
}

void close_acrobat_window(const Session& session, const std::string& path) {
    auto& clock = session.outside().clock;
    const std::string key = caption_key_of_file(path, session.outside().files.separator());
    const float deadline = clock.seconds_since_midnight() + closing_seconds;
    while (clock.seconds_since_midnight() <= deadline) {
        clock.pump_while_waiting();
        if (const WindowHandle window = find_window(session, editions_to_close, key); window > 0) {
            close(session, window);
            return;
        }
    }
}

bool wait_for_acrobat_window(const Session& session, const std::string& caption_key,
                             std::optional<float> seconds) {
    auto& clock = session.outside().clock;
    const float begin = clock.seconds_since_midnight();
    while (true) {
        clock.pump_while_waiting();
        if (find_window(session, editions_to_wait_for, caption_key) > 0) return true;
        if (seconds && clock.seconds_since_midnight() > begin + *seconds) return false;
    }
}

void close_acrobat_main_windows(const Session& session) {
    for (const char* caption : main_captions) {
        if (const auto window = session.outside().windows.find_window(caption); window > 0) {
            close(session, window);
        }
    }
}

}  // namespace foliant::engines
