#pragma once

#include <xcb/xcb.h>

// This header of xcb has a field named with a word that C++ keeps for itself.
#define explicit explicitParts
#include <xcb/xkb.h>
#undef explicit
