#include "acrobat/images.h"

#include "acrobat/acrobat.h"
#include "acrobat/merge.h"
#include "acrobat/save_flags.h"
#include "automation/coerce.h"
#include "automation/text.h"
#include "session/errors.h"
#include "session/lists.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

namespace {

void set_if_given(const Value& document, std::string_view key, const std::string& text) {
    if (!automation::trim_blanks(text).empty()) document.call("SetInfo", {key, text});
}

void set_information(const Value& document, const DocumentInformation& information) {
    set_if_given(document, "Title", information.title);
    set_if_given(document, "Author", information.author);
    set_if_given(document, "Subject", information.subject);
    set_if_given(document, "Keywords", information.keywords);
}

void save_and_close(const Value& document, const std::string& path) {
    const bool saved = automation::to_bool(document.call("Save", {compact_save, path}));
    document.call("Close");
    if (!saved) throw session::component_error("Can't save file " + path + ".");
}

}  // namespace

void CreatePDFfromImageFile(const Session& session, const std::string& strPDFFile,
                            const std::string& strImageFile, const DocumentInformation& information) {
    session.require_file(strImageFile);
    Acrobat acrobat;
    session::with_error_trap(
        [&] {
            acrobat.application = new_application(session);
            acrobat.viewer = new_viewer(session);
            acrobat.viewer.call("Open", {strImageFile, ""});
            acrobat.viewer = acrobat.application.call("GetActiveDoc");
            if (automation::to_bool(acrobat.viewer.call("IsValid"))) {
                session.remove_if_exists(strPDFFile);
                acrobat.document = acrobat.viewer.call("GetPDDoc");
                set_information(acrobat.document, information);
                save_and_close(acrobat.document, strPDFFile);
            }
            acrobat.close_and_exit();
        },
        [&] { acrobat.let_both_go(); });
}

void CreatePDFfromMultiImage(const Session& session, const std::string& strPDFFile,
                             const Value& varImageFiles) {
    session::TemporaryFiles temporary;
    session::for_each_item<std::int16_t>(varImageFiles, [&](const Value& item) {
        const std::string image = automation::to_text(item);
        if (!session.FileExists(image)) return;
        const std::string path =
            session.TempFilePath() + "_temp_" + std::to_string(temporary.size()) + ".pdf";
        temporary.append(path);
        session.remove_if_exists(path);
        CreatePDFfromImageFile(session, path, image, {});
    });
    if (temporary.size() == 0) return;
    session.remove_if_exists(strPDFFile);
    CreatePDFfromMultiPDF(session, strPDFFile, temporary.list());
    temporary.remove_if_exist(session);
}

}  // namespace foliant::acrobat
