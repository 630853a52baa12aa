#pragma once

// MacTypes.h (macOS 10.0), which every framework includes: names in the global namespace that ours may not
// meet.

// NOLINTBEGIN(readability-identifier-naming): the system's names.
struct Point {
  short v;
  short h;
};

struct Rect {
  short top;
  short left;
  short bottom;
  short right;
};

using Byte = unsigned char;
using Fixed = int;
using OptionBits = unsigned int;
using Ptr = char*;
using Size = long;
using Style = unsigned char;
// NOLINTEND(readability-identifier-naming)
