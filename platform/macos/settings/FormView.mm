#include "platform/macos/settings/FormView.h"

#include <utility>

@implementation TWFormView

- (instancetype)initWithReport:(tilwin::macos::Report)report {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  report_ = std::move(report);
  return self;
}

- (BOOL)isFlipped {
  return YES;
}

@end
