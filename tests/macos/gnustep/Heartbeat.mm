// AppKit's event loop looks for events of this process after each timer and each posted task. GNUstep's
// sleeps on until the next timer or input, so there is always a next timer soon.

#import <AppKit/AppKit.h>

@interface TWHeartbeat : NSObject
@end

@implementation TWHeartbeat

+ (void)load {
  [[NSNotificationCenter defaultCenter] addObserver:self
                                           selector:@selector(start:)
                                               name:NSApplicationWillFinishLaunchingNotification
                                             object:nil];
}

+ (void)start:(NSNotification*)notification {
  (void)notification;
  NSTimer* const timer = [NSTimer timerWithTimeInterval:0.005
                                                 target:self
                                               selector:@selector(beat:)
                                               userInfo:nil
                                                repeats:YES];
  for (NSString* mode in @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ]) {
    [[NSRunLoop mainRunLoop] addTimer:timer forMode:mode];
  }
}

+ (void)beat:(NSTimer*)timer {
  (void)timer;
}

@end
