#include "engines/printer_job.h"

#include "automation/text.h"
#include "engines/dialog_sender.h"
#include "session/errors.h"
#include "session/registry_access.h"

namespace foliant::engines {

using automation::trim_blanks;
using session::Session;

namespace {

constexpr std::uint32_t ok_exclamation_system_modal = 4144;
constexpr std::uint32_t host_starts_writing_ms = 2000;
constexpr std::uint32_t file_holds_still_ms = 1000;
constexpr float acrobat_window_seconds = 15;

void start_save_dialog_sender(const Session& session, const std::string& folder, const std::string& target) {
    start_sender(session, folder, {"save pdf file as", "Edit", target});
}

}  // namespace

void choose_printer(const Session& session, std::string& strDistiller) {
    if (trim_blanks(strDistiller).empty()) strDistiller = session.PrinterName();
}

bool pdf_writer_asks_for_file(const Session& session) noexcept {
    return session.acrobat_version_number() > 5.0;
}

void choose_pdf_writer(const Session& session, std::string& strPDFWriter, const std::string& target) {
    if (pdf_writer_asks_for_file(session)) {
        strPDFWriter = session.PrinterName();
    } else {
        write_pdf_writer_target(session, target);
    }
}

void write_pdf_writer_target(const Session& session, const std::string& target) {
    const std::string key = "Software\\Adobe\\Acrobat PDFWriter";
    session::clsRegistry registry(session.outside());
    if (!registry.OpenRegistry(platform::hkey_current_user, key)) {
        registry.OpenRegistry(platform::hkey_current_user, "");
        registry.CreateDirectory(key);
        registry.OpenRegistry(platform::hkey_current_user, key);
    }
    registry.CreateValue("PDFFilename", target, platform::reg_string);
    registry.CloseRegistry();
}

void answer_printer_dialogs(const Session& session, const std::string& target) {
    const std::string folder = system_folder(session);
    if (!sender_is_in(session, folder) && !sender_is_in(session, session.outside().shell.library_folder())) {
        session.outside().windows.message_box(std::string(sender_missing_text),
                                              "File QUORIXSEND.EXE not found", ok_exclamation_system_modal);
        return;
    }
    // A sender in the library's own folder counts as present, yet it is started from the system folder:
    // installations rely on the command lines of this job always naming that folder.
    start_save_dialog_sender(session, folder, target);
    start_sender(session, folder, {"adobe pdf - security", "Button", ""});
}

void answer_save_dialog(const Session& session, const std::string& target) {
    const std::string folder = system_folder(session);
    if (!sender_is_in(session, folder) && !sender_is_in(session, session.outside().shell.library_folder())) {
        throw session::component_error(std::string(sender_missing_text));
    }
    start_save_dialog_sender(session, folder, target);
}

void wait_for_file(const Session& session, const std::string& path) {
    auto& clock = session.outside().clock;
    auto& files = session.outside().files;
    clock.settle(host_starts_writing_ms);
    while (true) {
        clock.pump_messages();
        if (!session.FileExists(path)) continue;
        const std::int64_t before = files.length(path);
        clock.settle(file_holds_still_ms);
        if (files.length(path) == before) return;
    }
}

std::string acrobat_caption_key(const std::string& target, char separator) {
    const std::string name = automation::to_lower(automation::file_name_part(target, separator));
    // With no dot there is nothing up to and including one.
    const std::size_t through_first_dot = name.find('.') + 1;
    return "[" + name.substr(0, through_first_dot) + "pdf]";
}

void close_acrobat_window(const Session& session, const std::string& target) {
    auto& clock = session.outside().clock;
    auto& windows = session.outside().windows;
    const std::string key = acrobat_caption_key(target, session.outside().files.separator());
    const float deadline = clock.seconds_since_midnight() + acrobat_window_seconds;
    while (clock.seconds_since_midnight() <= deadline) {
        clock.pump_messages();
        for (const char* viewer : {"adobe acrobat - ", "adobe acrobat professional - "}) {
            if (const auto window = windows.find_window(viewer + key); window > 0) {
                windows.close_window(window, "0");
                return;
            }
        }
    }
}

}  // namespace foliant::engines
