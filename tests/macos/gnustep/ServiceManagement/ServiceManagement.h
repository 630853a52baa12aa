#pragma once

#import <Foundation/Foundation.h>

/// The part of ServiceManagement that is used. Main thread.

/// ServiceManagement, macOS 13.0.
enum SMAppServiceStatus : NSInteger {
  SMAppServiceStatusNotRegistered = 0,
  SMAppServiceStatusEnabled = 1,
  SMAppServiceStatusRequiresApproval = 2,
  SMAppServiceStatusNotFound = 3,
};

/// ServiceManagement, macOS 13.0.
__attribute__((availability(macos, introduced = 13.0)))
@interface SMAppService : NSObject
/// The running program as a login item. Get rule.
+ (instancetype)mainAppService;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
- (SMAppServiceStatus)status;
@end
