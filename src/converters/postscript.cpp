#include "converters/postscript.h"

#include <algorithm>

#include "automation/coerce.h"
#include "automation/text.h"
#include "engines/printer_job.h"
#include "session/errors.h"
#include "session/lists.h"

namespace foliant::converters {

using automation::Value;
using session::Session;

namespace {

/// Each input runs between save and restore and with cleared stacks, so that it starts clean; the name goes
/// to the log.
constexpr std::string_view driver_prologue[] = {
    "/prun { /mysave save def", "dup = flush", "RunFile", "clear cleardictstack",
    "mysave restore",           "} def",       "",
};

/// What separates folders is "/" to the interpreter; where it is that already, a "\" is a letter like others.
std::string driver_line(std::string path, char separator) {
    std::replace(path.begin(), path.end(), separator, '/');
    return "(" + path + ") prun";
}

void write_driver_file(const Session& session, const std::string& driver_file, const Value& inputs) {
    platform::Files& files = session.outside().files;
    const auto driver = files.create_text(driver_file, platform::TextPurpose::scratch);
    for (const std::string_view line : driver_prologue)
        driver->write_line(line);
    session::for_each_item<std::int16_t>(inputs, [&](const Value& item) {
        session.outside().clock.pump_messages();
        const std::string path = automation::to_text(item);
        if (session.FileExists(path)) driver->write_line(driver_line(path, files.separator()));
    });
    driver->close();
}

}  // namespace

void CreatePDFfromPS(Session& session, const std::string& strPDFFile, const std::string& strPSFile,
                     std::string& strDistiller, const engines::DistillerOptions& options) {
    session.require_file(strPSFile);
    engines::DistillerJob distiller(session);
    session::with_error_trap(
        [&] {
            engines::choose_printer(session, strDistiller);
            session.remove_if_exists(strPDFFile);
            distiller.run(strPSFile, strPDFFile, options);
        },
        [&] { distiller.release(); });
}

void CreatePDFfromMultiPS(Session& session, const std::string& strPDFFile, const Value& varPSFiles,
                          std::string& strDistiller, const engines::DistillerOptions& options) {
    engines::DistillerJob distiller(session);
    session::with_error_trap(
        [&] {
            // Assumes a three-letter extension, whatever the name is: "book.pdf" gives "book.ps", "book"
            // gives "bps".
            const std::string driver_file = automation::without_last(strPDFFile, 3) + "ps";
            write_driver_file(session, driver_file, varPSFiles);
            engines::choose_printer(session, strDistiller);
            session.remove_if_exists(strPDFFile);
            distiller.run(driver_file, strPDFFile, options);
            session.outside().files.remove(driver_file);
        },
        [&] { distiller.release(); });
}

}  // namespace foliant::converters
