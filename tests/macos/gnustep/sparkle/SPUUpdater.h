#pragma once

#import <Foundation/Foundation.h>

#include "platform/macos/support/Held.h"

/// The parts of Sparkle 2 that are used. Instance variables, `living` and `becomeAbleToCheck:` are for tests,
/// which send to the classes by name, as the framework is loaded at run time.

@interface SPUUpdater : NSObject {
@public
  tilwin::macos::Held<NSDictionary*> headers;
  bool hadHeadersAtStart;
  bool canCheck;
}
@property(copy) NSDictionary* httpHeaders;
@property(readonly) BOOL canCheckForUpdates;
- (BOOL)startUpdater:(NSError**)error;
/// For tests: a session of the updater begins or ends. Observers are told.
- (void)becomeAbleToCheck:(BOOL)can;
@end

/// Counts those that live.
struct TWLivingController {
  TWLivingController() { ++count; }
  TWLivingController(const TWLivingController&) = delete;
  TWLivingController& operator=(const TWLivingController&) = delete;
  ~TWLivingController() { --count; }

  static inline int count = 0;
};

@interface SPUStandardUpdaterController : NSObject {
@public
  TWLivingController living;
  tilwin::macos::Held<SPUUpdater*> updater;
  bool startedAtOnce;
  bool hasDelegates;
  int checks;
}
@property(readonly) SPUUpdater* updater;
- (instancetype)initWithStartingUpdater:(BOOL)startsNow
                        updaterDelegate:(id)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate;
- (void)checkForUpdates:(id)sender;
+ (int)living;
/// Not owned, and of use only while it lives.
+ (SPUStandardUpdaterController*)latest;
/// The next one fails to start with this error; nil for none.
+ (void)setRefusal:(NSError*)error;
@end
