#pragma once

#include <filesystem>
#include <functional>

#include "platform/shell.h"

namespace foliant::platform::local {

/// The well-known folders: of them only the system folder (37) exists.
class LocalShell : public Shell {
  public:
    /// `system_folder` is asked for the system folder when somebody wants it.
    LocalShell(std::filesystem::path library_folder, std::function<std::filesystem::path()> system_folder);

    /// Raises what making the system folder raises.
    std::optional<std::string> special_folder(std::intptr_t owner, std::int32_t folder) override;

    /// A folder of this process alone. Temporary files begin their life here, and the folder that the program
    /// lies in is usually one that users may not write to.
    std::string library_folder() override;

  private:
    std::filesystem::path library_folder_;
    std::function<std::filesystem::path()> system_folder_;
};

}  // namespace foliant::platform::local
