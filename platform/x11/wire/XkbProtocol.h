#pragma once

#include <xcb/xcb.h>

// Includes xcb/xkb.h (X Keyboard Extension), which has a field named `explicit`, a keyword of C++.
#define explicit explicitParts
#include <xcb/xkb.h>
#undef explicit
