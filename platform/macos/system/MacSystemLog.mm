#include "platform/macos/system/MacSystemLog.h"

#import <Foundation/Foundation.h>

#include "platform/macos/support/Held.h"

namespace tilwin::macos {
namespace {

Held<NSString*> decoded(std::string_view line, NSStringEncoding encoding) {
  return owned([[NSString alloc] initWithBytes:line.data() length:line.size() encoding:encoding]);
}

}  // namespace

void MacSystemLog::write(std::string_view line) {
  const AutoreleasePool pool;
  auto text = decoded(line, NSUTF8StringEncoding);
  if (!text) text = decoded(line, NSISOLatin1StringEncoding);
  NSLog(@"%@", text.get());
}

}  // namespace tilwin::macos
