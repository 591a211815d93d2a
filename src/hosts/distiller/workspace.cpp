#include "hosts/distiller/workspace.h"

#include <cstdlib>
#include <fstream>
#include <string>

#include "hosts/distiller/distill_error.h"
#include "hosts/distiller/driver_file.h"
#include "hosts/distiller/engine/protocol.h"
#include "hosts/distiller/setup_program.h"

namespace foliant::hosts::distiller {
namespace {

namespace fs = std::filesystem;

fs::path make_folder(const fs::path& parent) {
    std::string name = (parent / "distill-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw DistillError("Cannot make a working folder in " + parent.string() + ": " +
                           system_reason(errno) +
                           ". Free some space there, or set TMPDIR to a folder that you may write to.");
    }
    return name;
}

}  // namespace

Workspace::Workspace(const DistillJob& job, const Source& source) : folder_(make_folder(job.private_folder)) {
    try {
        fill(job, source);
    } catch (const fs::filesystem_error& error) {
        fs::remove_all(folder_);
        throw DistillError(std::string("Cannot prepare the working folder: ") + error.what() + ".");
    }
}

Workspace::~Workspace() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

void Workspace::fill(const DistillJob& job, const Source& source) const {
    fs::create_directory(folder_ / "in");
    fs::create_directory(folder_ / engine::scratch_folder);
    if (source.is_driver) {
        write_file(engine::input_name(0), driver_program(source.part_names));
    } else {
        fs::create_symlink(source.main.path, folder_ / engine::input_name(0));
    }
    for (std::size_t i = 0; i < source.parts.size(); ++i) {
        fs::create_symlink(source.parts[i].path, folder_ / engine::input_name(i + 1));
    }
    if (!job.job_options_file.empty()) {
        fs::create_symlink(fs::absolute(job.job_options_file), folder_ / engine::options_file);
    }
    fs::create_symlink("/proc/self/fd/" + std::to_string(engine::output_descriptor),
                       folder_ / engine::output_file);
    write_file(engine::setup_file, setup_program(source));
}

void Workspace::write_file(const std::string& name, const std::string& content) const {
    std::ofstream file(folder_ / name, std::ios::binary);
    file << content;
    if (!file.flush()) {
        throw fs::filesystem_error("writing failed", folder_ / name,
                                   std::error_code(EIO, std::generic_category()));
    }
}

}  // namespace foliant::hosts::distiller
