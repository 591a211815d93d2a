#pragma once

#include <filesystem>
#include <functional>

#include "platform/shell.h"

namespace foliant::platform::local {

/// The well-known folders: of them only the system folder (37) exists.
class LocalShell : public Shell {
  public:
    using Folder = std::function<std::filesystem::path()>;

    /// Each is asked for its folder when somebody wants it.
    LocalShell(Folder library_folder, Folder system_folder);

    /// Raises what making the system folder raises.
    std::optional<std::string> special_folder(std::intptr_t owner, std::int32_t folder) override;

    /// A folder of this process alone. Temporary files begin their life here, and the folder that the program
    /// lies in is usually one that users may not write to. Raises what making it raises.
    std::string library_folder() override;

  private:
    Folder library_folder_;
    Folder system_folder_;
};

}  // namespace foliant::platform::local
