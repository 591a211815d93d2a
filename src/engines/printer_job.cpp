#include "engines/printer_job.h"

#include "automation/text.h"
#include "engines/dialog_sender.h"
#include "registered/keys.h"
#include "session/acrobat_versions.h"
#include "session/registry_access.h"

namespace foliant::engines {

using automation::trim_blanks;
using session::Session;

namespace {

constexpr std::uint32_t ok_exclamation_system_modal = 4144;
constexpr std::uint32_t host_starts_writing_ms = 2000;
constexpr std::uint32_t file_holds_still_ms = 1000;

// A sender in the library's own folder counts as present, yet this job starts it from the system folder:
// installations rely on its command lines always naming that one.

void start_save_dialog_sender(const Session& session, const std::string& system, const std::string& target) {
    start_sender(session, system, {"save pdf file as", "Edit", target});
}

}  // namespace

void choose_printer(const Session& session, std::string& strDistiller) {
    if (trim_blanks(strDistiller).empty()) strDistiller = session.PrinterName();
}

void override_pdf_writer(const Session& session, std::string& strPDFWriter) {
    if (session::acrobat_is_newer_than_5(session)) strPDFWriter = session.PrinterName();
}

void choose_pdf_writer(const Session& session, std::string& strPDFWriter, const std::string& target) {
    if (session::acrobat_is_5_or_older(session)) write_pdf_writer_target(session, target);
    override_pdf_writer(session, strPDFWriter);
}

void write_pdf_writer_target(const Session& session, const std::string& target) {
    const std::string key(registered::pdf_writer_key);
    session::clsRegistry registry(session.outside());
    if (!registry.OpenRegistry(platform::hkey_current_user, key)) {
        registry.OpenRegistry(platform::hkey_current_user, "");
        registry.CreateDirectory(key);
        registry.OpenRegistry(platform::hkey_current_user, key);
    }
    registry.CreateValue(std::string(registered::pdf_writer_target_value), target, platform::reg_string);
    registry.CloseRegistry();
}

void answer_printer_dialogs(const Session& session, const std::string& target) {
    const std::string system = system_folder(session);
    if (!locate_sender(session, system)) {
        session.outside().windows.message_box(std::string(sender_missing_text),
                                              "File QUORIXSEND.EXE not found", ok_exclamation_system_modal);
        return;
    }
    start_save_dialog_sender(session, system, target);
    start_sender(session, system, {"adobe pdf - security", "Button", ""});
}

void answer_save_dialog(const Session& session, const std::string& target) {
    answer_save_dialog(session, target, system_folder(session));
}

void answer_save_dialog(const Session& session, const std::string& target, const std::string& system) {
    require_sender(session, system);
    start_save_dialog_sender(session, system, target);
}

void let_host_start_writing(const Session& session) {
    session.outside().clock.settle(host_starts_writing_ms);
}

void wait_until_complete(const Session& session, const std::string& path) {
    auto& clock = session.outside().clock;
    auto& files = session.outside().files;
    while (true) {
        clock.pump_while_waiting();
        if (!session.FileExists(path)) continue;
        const std::int64_t before = files.length(path);
        clock.settle(file_holds_still_ms);
        if (files.length(path) == before) return;
    }
}

void wait_for_file(const Session& session, const std::string& path) {
    let_host_start_writing(session);
    wait_until_complete(session, path);
}

}  // namespace foliant::engines
