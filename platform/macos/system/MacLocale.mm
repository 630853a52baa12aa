#include "platform/macos/system/MacLocale.h"

#import <Foundation/Foundation.h>

#include <cstdlib>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {

void takeUserLocale() { ::setenv("LANG", utf8([[NSLocale currentLocale] localeIdentifier]).c_str(), 0); }

}  // namespace tilwin::macos
