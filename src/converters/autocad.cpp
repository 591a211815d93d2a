#include "converters/autocad.h"

#include "acrobat/merge.h"
#include "engines/acrobat_windows.h"
#include "engines/dialog_sender.h"
#include "engines/host_program.h"
#include "engines/printer_job.h"
#include "registered/classes.h"
#include "session/acrobat_versions.h"
#include "session/errors.h"
#include "session/lists.h"

namespace foliant::converters {

using automation::Value;
using engines::HostProgram;
using session::acrobat_is_5_or_older;
using session::acrobat_is_newer_than_5;
using session::Session;

namespace {

void open_drawing(const Session& session, const std::string& path, HostProgram& autocad) {
    constexpr bool read_only = true;
    autocad.application = session.outside().servers.create(registered::autocad);
    autocad.document =
        autocad.application.get("Application").get("Documents").call("Open", {path, read_only});
}

void plot_layout(const HostProgram& autocad, const Value& layout, const std::string& printer) {
    autocad.document.set_reference("ActiveLayout", autocad.document.get("Layouts", {layout}));
    autocad.document.get("Plot").call("PlotToDevice", {printer});
}

/// PDFWriter has written its file when the host's pause is over; a later printer is waited for.
void wait_for_plot(const Session& session, const std::string& pdf, bool close_acrobat) {
    engines::let_host_start_writing(session);
    if (!acrobat_is_newer_than_5(session)) return;
    engines::wait_until_complete(session, pdf);
    if (close_acrobat) engines::close_acrobat_window(session, pdf);
}

}  // namespace

void CreatePDFfromAutoCAD(Session& session, const std::string& strPDFFile, const std::string& strDWGFile,
                          const Value& varLayout, std::string strPDFWriter, bool blnCloseAcrobat) {
    session.require_file(strDWGFile);
    HostProgram autocad;
    session::with_error_trap(
        [&] {
            engines::choose_pdf_writer(session, strPDFWriter, strPDFFile);
            session.remove_if_exists(strPDFFile);
            if (acrobat_is_newer_than_5(session)) engines::answer_save_dialog(session, strPDFFile);
            open_drawing(session, strDWGFile, autocad);
            plot_layout(autocad, varLayout, strPDFWriter);
            wait_for_plot(session, strPDFFile, blnCloseAcrobat);
            autocad.close_and_quit({false});
        },
        [&] { autocad.let_go(); });
}

void CreatePDFfromMultiAutoCAD(Session& session, const std::string& strPDFFile, const std::string& strDWGFile,
                               const Value& varLayouts, std::string strPDFWriter, bool blnCloseAcrobat) {
    session.require_file(strDWGFile);
    HostProgram autocad;
    session::with_error_trap(
        [&] {
            const std::string system = engines::system_folder(session);
            open_drawing(session, strDWGFile, autocad);
            engines::override_pdf_writer(session, strPDFWriter);
            session::TemporaryFiles plotted;
            session::for_each_item<std::int16_t>(varLayouts, [&](std::int16_t index, const Value& layout) {
                session.outside().clock.pump_messages();
                const std::string pdf = session.temporary_file(".pdf");
                if (acrobat_is_5_or_older(session)) engines::write_pdf_writer_target(session, pdf);
                session.remove_if_exists(pdf);
                if (acrobat_is_newer_than_5(session)) engines::answer_save_dialog(session, pdf, system);
                plot_layout(autocad, layout, strPDFWriter);
                wait_for_plot(session, pdf, blnCloseAcrobat);
                plotted.put(index, pdf);
            });
            autocad.close_and_quit({false});
            session.remove_if_exists(strPDFFile);
            acrobat::CreatePDFfromMultiPDF(session, strPDFFile, plotted.list());
            plotted.remove(session);
        },
        [&] { autocad.let_go(); });
}

}  // namespace foliant::converters
