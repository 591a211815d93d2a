#include "acrobat/merge.h"

#include <memory>
#include <optional>

#include "acrobat/acrobat.h"
#include "acrobat/pages.h"
#include "acrobat/save_flags.h"
#include "automation/coerce.h"
#include "automation/text.h"
#include "session/errors.h"
#include "session/lists.h"

namespace foliant::acrobat {

using automation::Value;
using session::Session;

namespace {

/// The two documents of a merge.
struct Merge {
    Value target;
    Value source;

    /// Inserts the first `count` pages of the source behind a page of the target; -1 is before its first one.
    void insert_pages(std::int16_t insert_after, std::int16_t count) const {
        const std::int16_t first = 0;
        const bool with_bookmarks = true;
        target.call("InsertPages", {insert_after, source, first, count, with_bookmarks});
    }

    void release() noexcept {
        target = {};
        source = {};
    }
};

void insert_file(Merge& merge, const std::string& path) {
    merge.source.call("Open", {path});
    const std::int16_t count = page_count_in_16_bits(merge.source);
    const std::int16_t insert_after = last_page_in_16_bits(merge.target);
    merge.insert_pages(insert_after, count);
    merge.source.call("Close");
}

/// The same with a source that is made for the file.
void insert_file_of_folder(const Session& session, Merge& merge, const std::string& path) {
    const std::int16_t insert_after = last_page_in_16_bits(merge.target);
    merge.source = new_document(session);
    merge.source.call("Open", {path});
    const std::int16_t count = page_count_in_16_bits(merge.source);
    merge.insert_pages(insert_after, count);
    merge.source.call("Close");
}

}  // namespace

void CreatePDFfromMultiPDF(const Session& session, const std::string& strPDFFile, const Value& varPDFFiles) {
    Merge merge;
    session::with_error_trap(
        [&] {
            merge.target = new_document(session);
            merge.source = new_document(session);
            if (!automation::to_bool(merge.target.call("Create")))
                throw session::component_error("Unable to create document object.");
            session.remove_if_exists(strPDFFile);
            session::for_each_item<std::int16_t>(varPDFFiles, [&](const Value& item) {
                session.outside().clock.pump_messages();
                const std::string path = automation::to_text(item);
                if (session.FileExists(path)) insert_file(merge, path);
            });
            merge.target.call("Save", {linearised_save, strPDFFile});
            merge.target.call("Close");
            merge.release();
        },
        [&] { merge.release(); });
}

void CreatePDFfromMultiPDFinDir(const Session& session, const std::string& strPDFFile,
                                const std::string& strDirectory, const std::string& strFiles) {
    Merge merge;
    session::with_error_trap(
        [&] {
            merge.target = new_document(session);
            auto& files = session.outside().files;
            const std::string folder = automation::with_separator(strDirectory, files.separator());
            const std::unique_ptr<platform::Listing> listing = files.list(folder + strFiles);
            std::optional<std::string> name = listing->next();
            // Without a match this opens the folder, which comes to nothing.
            merge.target.call("Open", {folder + name.value_or("")});
            if (name) {
                name = listing->next();
                session.remove_if_exists(strPDFFile);
                for (; name; name = listing->next())
                    insert_file_of_folder(session, merge, folder + *name);
                merge.target.call("Save", {full_save, strPDFFile});
            }
            merge.target.call("Close");
            merge.release();
        },
        [&] { merge.release(); });
}

}  // namespace foliant::acrobat
