// Makes blocks objects. Here the runtime of blocks marks each with the address of one of three arrays, where
// Apple's has classes, so that no message could be sent to a block. Copies of these classes go into the
// arrays.

#import <Foundation/Foundation.h>

#include <Block.h>

#include <algorithm>

extern "C" {

// NOLINTBEGIN(readability-identifier-naming): the names are those of the runtime.
extern void* _NSConcreteGlobalBlock[32];
extern void* _NSConcreteMallocBlock[32];
extern void* _NSConcreteStackBlock[32];
// NOLINTEND(readability-identifier-naming)

}  // extern "C"

namespace {

/// The words of struct objc_class in GCC's runtime.
constexpr std::size_t wordsOfClass = 13;

void copyClass(Class from, void** to) {
  // Any message, so that the class is initialised before it is copied.
  [from class];
  std::copy_n(reinterpret_cast<void* const*>(from), wordsOfClass, to);
}

/// The beginning of every block, as clang lays it out.
struct BlockHeader {
  void* mark;
  unsigned flags;
};

bool isOnHeap(id block) {
  constexpr unsigned needsFree = 1U << 24U;
  return (reinterpret_cast<const BlockHeader*>(block)->flags & needsFree) != 0;
}

}  // namespace

/// A block that lives as long as its program, or as its scope: ownership means nothing to it.
@interface TWGlobalBlock : NSObject <NSCopying>
@end

@implementation TWGlobalBlock

+ (void)load {
  copyClass(self, _NSConcreteGlobalBlock);
}
- (id)copyWithZone:(NSZone*)zone {
  (void)zone;
  return reinterpret_cast<id>(_Block_copy(self));
}
- (id)copy {
  return [self copyWithZone:nullptr];
}
- (id)retain {
  return self;
}
- (oneway void)release {
}
- (id)autorelease {
  return self;
}

@end

/// Also the class of most copies on the heap, whose mark the runtime leaves as it was on the stack.
@interface TWStackBlock : TWGlobalBlock
@end

@implementation TWStackBlock

+ (void)load {
  copyClass(self, _NSConcreteStackBlock);
}
- (id)retain {
  return isOnHeap(self) ? reinterpret_cast<id>(_Block_copy(self)) : self;
}
- (oneway void)release {
  if (isOnHeap(self)) _Block_release(self);
}
- (id)autorelease {
  if (isOnHeap(self)) [NSAutoreleasePool addObject:self];
  return self;
}

@end

@interface TWMallocBlock : TWStackBlock
@end

@implementation TWMallocBlock

+ (void)load {
  copyClass(self, _NSConcreteMallocBlock);
}

@end
