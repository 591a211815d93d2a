#pragma once

// GLib's header is C++ in parts and comes first: mdbtools' own would take it for C.
// clang-format off
#include <glib.h>
#include <mdbtools.h>
// clang-format on
