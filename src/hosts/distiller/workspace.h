#pragma once

#include <cstddef>
#include <filesystem>

#include "hosts/distiller/distill_job.h"
#include "hosts/distiller/source_file.h"

namespace foliant::hosts::distiller {

/// The folder that the engine works in. Everything that the document may read is linked into it under a name
/// of ours, so that no character of a user's path ever means something in a permission or in PostScript.
///
///     in/0         the input; a driver written anew
///     in/1 ...     the files that a driver names, in its order
///     in/options   the job-options file, where there is one
///     in/setup     the setup program
///     scratch/     where the interpreter puts what does not fit into memory
///     out.pdf      the output; a link to a descriptor that the engine inherits
class Workspace {
  public:
    /// Made inside `job.private_folder`, with nothing in it but the above. Throws DistillError.
    Workspace(const DistillJob& job, const Source& source);
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    ~Workspace();

    const std::filesystem::path& folder() const { return folder_; }

  private:
    void fill(const DistillJob& job, const Source& source) const;
    void write_file(const std::string& name, const std::string& content) const;

    std::filesystem::path folder_;
};

}  // namespace foliant::hosts::distiller
