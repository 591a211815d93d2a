#include "hosts/distiller/distiller.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/engine_process.h"
#include "hosts/distiller/job_run.h"
#include "hosts/distiller/output_error.h"
#include "hosts/distiller/security_record.h"
#include "hosts/distiller/source_file.h"
#include "hosts/distiller/utf8.h"
#include "hosts/distiller/workspace.h"
#include "hosts/pending_file.h"

namespace foliant::hosts::distiller {
namespace {

namespace fs = std::filesystem;

class Cancelled : public DistillError {
  public:
    explicit Cancelled(const DistillJob& job)
        : DistillError("The conversion of " + job.input_ps.string() + " was cancelled.") {}
};

void require_readable_options(const fs::path& file) {
    if (file.empty()) return;
    const auto cannot = [&file](const std::string& reason) {
        return DistillError("Cannot read the job-options file " + file.string() + ": " + reason +
                            ". Give an existing file, or none for the default settings.");
    };
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (error) throw cannot(error.message());
    if (!fs::is_regular_file(status)) throw cannot("it is not an ordinary file");
    if (::access(file.c_str(), R_OK) != 0) throw cannot(system_reason(errno));
}

/// A full disk shows here at the latest: the interpreter does not look at what its writes return.
void require_complete_pdf(const PendingFile& file, const DistillJob& job) {
    constexpr off_t trailer_bytes = 64;
    const off_t size = ::lseek(file.descriptor(), 0, SEEK_END);
    std::string ends(static_cast<std::size_t>(trailer_bytes), '\0');
    const auto got =
        size < trailer_bytes ? 0 : ::pread(file.descriptor(), ends.data(), ends.size(), size - trailer_bytes);
    if (got == static_cast<ssize_t>(trailer_bytes) && ends.find("%%EOF") != std::string::npos) return;
    const bool full = disk_is_full(job.output_pdf.parent_path());
    throw DistillError("Cannot write the PDF " + job.output_pdf.string() + ": " +
                       (full ? "the disk is full. Free some space there, or choose another folder."
                             : "it came out incomplete. Check the disk it is on."));
}

/// Runs the engine on a workspace until the plain PDF is in `output`.
void run_engine(const fs::path& engine_folder, const Workspace& workspace, const PendingFile& output,
                JobRun& run, Progress& progress, const DistillJob& job) {
    EngineProcess process(
        engine_folder, ghostscript_engine,
        {engine::distill_command, workspace.folder(), {output.descriptor()}, job.memory_bytes});
    bool cancelled = false;
    const auto give_up = [&] { return cancelled = cancelled || progress.cancelled(); };
    while (const auto record = process.next(give_up))
        run.take(*record);
    if (cancelled) throw Cancelled(job);
    run.require_success(process.wait_for_end());
    require_complete_pdf(output, job);
}

/// Writes `plain` to `locked` as the job's security says.
void protect(const fs::path& engine_folder, const PendingFile& plain, const PendingFile& locked,
             Progress& progress, const DistillJob& job) {
    const posix::FileDescriptor security = write_security(*job.security);
    EngineProcess process(engine_folder, qpdf_protector,
                          {engine::protect_command,
                           "/",
                           {locked.descriptor(), plain.descriptor(), security.get()},
                           job.memory_bytes});
    bool cancelled = false;
    const auto outcome = process.next([&] { return cancelled = progress.cancelled(); });
    if (cancelled) throw Cancelled(job);
    if (outcome && outcome->kind == engine::Record::done) return require_complete_pdf(locked, job);
    throw DistillError("Cannot protect the PDF " + job.output_pdf.string() + ": " +
                       (outcome ? as_utf8(outcome->text) : process.wait_for_end()) + ".");
}

void convert(const fs::path& engine_folder, const DistillJob& job, Progress& progress, int& pages) {
    const Source source =
        job.driver ? examine_driver(job.input_ps, *job.driver) : examine_source(job.input_ps);
    require_readable_options(job.job_options_file);
    PendingFile output(job.output_pdf);
    const Workspace workspace(job, source);
    JobRun run(job, source, progress, pages);
    run.report_percent(0);

    if (job.security) {
        const PendingFile plain(workspace.folder() / "plain.pdf");
        run_engine(engine_folder, workspace, plain, run, progress, job);
        protect(engine_folder, plain, output, progress, job);
    } else {
        run_engine(engine_folder, workspace, output, run, progress, job);
    }
    output.commit();
    run.report_percent(100);
}

/// The whole job; throws DistillError when it fails.
void carry_out(const fs::path& engine_folder, const DistillJob& job, Progress& progress, int& pages) {
    try {
        convert(engine_folder, job, progress, pages);
    } catch (const fs::filesystem_error& failure) {
        throw output_error(failure);
    }
}

}  // namespace

Distiller::Distiller(fs::path engine_folder) : engine_folder_(std::move(engine_folder)) {}

DistillResult Distiller::distill(const DistillJob& wanted, Progress& progress) const {
    DistillJob job = wanted;
    job.output_pdf = fs::absolute(wanted.output_pdf);
    job.private_folder =
        fs::absolute(wanted.private_folder.empty() ? fs::temp_directory_path() : wanted.private_folder);
    DistillResult result;
    progress.job_started(wanted);
    try {
        carry_out(engine_folder_, job, progress, result.pages);
        result.succeeded = true;
    } catch (const DistillError& error) {
        result.error = error.what();
        result.cancelled = dynamic_cast<const Cancelled*>(&error) != nullptr;
        result.out_of_memory = dynamic_cast<const OutOfMemory*>(&error) != nullptr;
        result.engine_missing = dynamic_cast<const EngineMissing*>(&error) != nullptr;
    }
    if (result.succeeded) {
        progress.job_done(wanted);
    } else {
        progress.message(result.error);
        progress.job_failed(wanted);
    }
    return result;
}

std::string Distiller::engine_version() const {
    EngineProcess process(engine_folder_, ghostscript_engine,
                          {engine::version_command, "/", {}, usual_memory_limit});
    const auto record = process.next([] { return false; });
    const std::string how_it_ended = process.wait_for_end();
    if (!record) throw DistillError("The Distiller engine does not run: " + how_it_ended + ".");
    return record->text;
}

}  // namespace foliant::hosts::distiller
