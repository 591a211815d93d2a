#pragma once

#include <vector>

#include "support/fault_scene.h"

namespace foliant::converters {

// The scenes of the mechanical fault test, a list per family of members.

std::vector<tests::FaultScene> settings_scenes();
std::vector<tests::FaultScene> postscript_scenes();
std::vector<tests::FaultScene> word_scenes();
std::vector<tests::FaultScene> pdf_writer_scenes();

}  // namespace foliant::converters
