#include "hosts/acrobat/text/page_source.h"

extern "C" __attribute__((visibility("default"))) const auto foliant_part =
    &foliant::hosts::acrobat::text::open_pages;
