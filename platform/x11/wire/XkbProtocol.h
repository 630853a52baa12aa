#pragma once

#include <xcb/xcb.h>

// Clang warns of a keyword as the name of a macro, and GCC does not know that warning's name.
#pragma GCC system_header

// Includes xcb/xkb.h (X Keyboard Extension), which has a field named `explicit`, a keyword of C++.
#define explicit explicitParts
#include <xcb/xkb.h>
#undef explicit
