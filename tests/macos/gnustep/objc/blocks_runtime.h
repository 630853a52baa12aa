#pragma once

// GNUstep asks for this header when the compiler has blocks; the runtime of blocks has another name here.

#include <Block.h>
