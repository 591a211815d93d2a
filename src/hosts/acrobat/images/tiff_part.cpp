#include "hosts/acrobat/images/tiff.h"

extern "C" __attribute__((visibility("default"))) const auto foliant_part =
    &foliant::hosts::acrobat::images::read_tiff;
