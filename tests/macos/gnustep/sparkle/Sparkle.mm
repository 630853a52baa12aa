// The update framework as a bundle that is loaded at run time. It checks nothing: it counts.

#include "tests/macos/gnustep/sparkle/SPUUpdater.h"

namespace {

SPUStandardUpdaterController* latestController = nil;
tilwin::macos::Held<NSError*> refusal;

}  // namespace

@implementation SPUUpdater

+ (BOOL)automaticallyNotifiesObserversForKey:(NSString*)key {
  (void)key;
  return NO;
}

- (NSDictionary*)httpHeaders {
  return headers.get();
}
- (void)setHttpHeaders:(NSDictionary*)entries {
  headers = tilwin::macos::owned<NSDictionary*>([entries copy]);
  hadHeadersAtStart = false;
}
- (BOOL)canCheckForUpdates {
  return canCheck ? YES : NO;
}

- (BOOL)startUpdater:(NSError**)error {
  if (refusal) {
    if (error != nullptr) *error = refusal.get();
    return NO;
  }
  hadHeadersAtStart = bool(headers);
  [self becomeAbleToCheck:YES];
  return YES;
}

- (void)becomeAbleToCheck:(BOOL)can {
  [self willChangeValueForKey:@"canCheckForUpdates"];
  canCheck = can == YES;
  [self didChangeValueForKey:@"canCheckForUpdates"];
}

@end

@implementation SPUStandardUpdaterController

+ (int)living {
  return TWLivingController::count;
}
+ (SPUStandardUpdaterController*)latest {
  return latestController;
}
+ (void)setRefusal:(NSError*)error {
  refusal = tilwin::macos::retained(error);
}

- (instancetype)initWithStartingUpdater:(BOOL)startsNow
                        updaterDelegate:(id)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate {
  self = [super init];
  if (self == nil) return nil;
  updater = tilwin::macos::owned([[SPUUpdater alloc] init]);
  startedAtOnce = startsNow == YES;
  latestController = self;
  hasDelegates = updaterDelegate != nil || userDriverDelegate != nil;
  return self;
}

- (SPUUpdater*)updater {
  return updater.get();
}

- (void)checkForUpdates:(id)sender {
  (void)sender;
  ++checks;
}

@end
