// GNUstep's scroll views have their scrollers at the left unless they are told to look as on macOS.

#import <AppKit/AppKit.h>

@interface TWScrollersAtTheRight : NSObject
@end

@implementation TWScrollersAtTheRight

+ (void)load {
  [[NSNotificationCenter defaultCenter] addObserver:self
                                           selector:@selector(set:)
                                               name:NSApplicationWillFinishLaunchingNotification
                                             object:nil];
}

+ (void)set:(NSNotification*)notification {
  (void)notification;
  [[NSUserDefaults standardUserDefaults]
      registerDefaults:@{@"NSScrollViewInterfaceStyle" : @"NSMacintoshInterfaceStyle"}];
}

@end
