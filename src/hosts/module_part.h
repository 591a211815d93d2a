#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace foliant::hosts {

/// Where modules lie for a program at that path: beside it in the build folder, in ../lib/foliant/hosts once installed.
std::vector<std::filesystem::path> hosts_folders(const std::filesystem::path& program);

/// Parts of a host module: libraries beside it, or in the folder of modules for one that the program has in itself. They
/// are loaded when their work comes up: a module is there for every call, and what an engine takes to load is most of
/// what a short call takes.
///
/// A part exports one variable, `foliant_part`: a constant pointer to the function that does its work. Module
/// and parts come from one build, so C++ types may cross.
class ModuleParts {
  public:
    /// Of the module that `inside`, a variable of it that nobody else sees, belongs to.
    explicit ModuleParts(const void* inside);

    /// Where it lies, "acrobat-tiff.so" for example; whether or not it is there.
    std::filesystem::path file(std::string_view part) const { return folder_ / part; }

    /// The function of a part, which stays loaded. Throws std::runtime_error with the loader's reason.
    template <typename Function>
    Function& load(std::string_view part) const {
        return **static_cast<Function* const*>(variable(part));
    }

  private:
    const void* variable(std::string_view part) const;

    std::filesystem::path folder_;
};

}  // namespace foliant::hosts
