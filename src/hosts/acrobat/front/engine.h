#pragma once

#include <string>
#include <string_view>

#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::acrobat::front {

/// Acrobat's objects on qpdf: the part of the module that takes long to load.
struct Engine {
    std::string (*version)();

    /// Creates the class of that name. Raises 429 for a name that is none of Acrobat's.
    automation::ObjectPtr (*create)(std::string_view class_name, Machine& machine);

    /// The file that is opened next under that path is this one, which the machine has handed out already: it does so
    /// once for each time that a document is opened.
    void (*take_over)(const std::string& path, posix::FileDescriptor file);
};

}  // namespace foliant::hosts::acrobat::front
