#pragma once

#import <Foundation/Foundation.h>

#include "tests/macos/Introduced.h"

/// The part of ServiceManagement that is used. Main thread.

/// ServiceManagement, macOS 13.0.
enum INTRODUCED(13.0) SMAppServiceStatus : NSInteger {
  SMAppServiceStatusNotRegistered = 0,
  SMAppServiceStatusEnabled = 1,
  SMAppServiceStatusRequiresApproval = 2,
  SMAppServiceStatusNotFound = 3,
};

/// ServiceManagement, macOS 13.0.
INTRODUCED(13.0)
@interface SMAppService : NSObject
/// The running program as a login item. Get rule.
+ (instancetype)mainAppService INTRODUCED(13.0);
- (BOOL)registerAndReturnError:(NSError**)error INTRODUCED(13.0);
- (BOOL)unregisterAndReturnError:(NSError**)error INTRODUCED(13.0);
- (SMAppServiceStatus)status INTRODUCED(13.0);
@end
