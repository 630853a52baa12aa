// GNUstep's workspace tells only of its own kind of programs.

#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "platform/macos/support/Text.h"
#include "tests/macos/gnustep/ProgramsElsewhere.h"

using tilwin::macos::ProgramElsewhere;

namespace tilwin::macos {

ProgramsElsewhere& programsElsewhere() {
  static ProgramsElsewhere programs;
  return programs;
}

}  // namespace tilwin::macos

@interface TWProgramElsewhere : NSRunningApplication {
@public
  ProgramElsewhere program;
}
@end

namespace {

NSString* textIfAny(const std::optional<std::string>& utf8) {
  return utf8 ? tilwin::macos::text(*utf8) : nil;
}

NSRunningApplication* object(const ProgramElsewhere& program) {
  TWProgramElsewhere* const made = [[[TWProgramElsewhere alloc] init] autorelease];
  made->program = program;
  return made;
}

}  // namespace

@implementation TWProgramElsewhere

- (pid_t)processIdentifier {
  return program.processID;
}
- (NSString*)bundleIdentifier {
  return textIfAny(program.bundleIdentifier);
}
- (NSString*)localizedName {
  return textIfAny(program.localizedName);
}
- (NSApplicationActivationPolicy)activationPolicy {
  return program.policy;
}

@end

@interface TWKnowingWorkspace : NSWorkspace
@end

@implementation TWKnowingWorkspace

+ (void)load {
  const tilwin::macos::AutoreleasePool pool;
  for (SEL each : { @selector(frontmostApplication), @selector(runningApplications) }) {
    method_setImplementation(class_getInstanceMethod([NSWorkspace class], each),
                             class_getMethodImplementation(self, each));
  }
}

- (NSRunningApplication*)frontmostApplication {
  const auto& front = tilwin::macos::programsElsewhere().frontmost;
  return front ? object(*front) : nil;
}

- (NSArray*)runningApplications {
  NSMutableArray* const result = [NSMutableArray array];
  for (const auto& each : tilwin::macos::programsElsewhere().running) [result addObject:object(each)];
  return result;
}

@end
