#pragma once

#include <filesystem>

#include "hosts/office/application.h"

namespace foliant::hosts::office {

struct Office;

/// Raises, as an error of `application`, 429 naming the package when LibreOffice, or the part of it that the
/// application takes, is not there.
void require_office(const Application& application);

/// Starts LibreOffice inside this process (no other process, no daemon, no pipe), with a fresh profile in
/// `private_folder`, an existing folder that stays until the process ends and that the caller removes then;
/// profile and temporary files live there.
///
/// There is one for the life of the process, because LibreOffice can be started only once: a second call
/// gives the same one and does not look at its folder. It is never ended. A process that has started it ends
/// best with `_exit` after flushing its output: LibreOffice's threads are still there while static objects
/// are destroyed. Not for use from two threads.
///
/// Leaves signal handlers, the C locale and the temporary folder of the process as they were.
/// Raises, as an error of `application`, 429 naming the package when LibreOffice is not there or cannot be
/// used, 75 when the folder cannot be written.
const Office& start_office(const std::filesystem::path& private_folder, const Application& application);

}  // namespace foliant::hosts::office
