#include "tests/macos/gnustep/Attached.h"

#include <string>
#include <vector>

#include "core/support/Fatal.h"

namespace tilwin::macos {
namespace {

using Act = std::function<void(const void*)>;
using Dealloc = void (*)(id, SEL);

struct AttendedClass {
  Dealloc dealloc = nullptr;  ///< the one it had before
  std::vector<Act> acts{};
};

struct AttendedClasses {
  std::mutex mutex{};
  std::unordered_map<Class, AttendedClass> all{};
};

/// Never destroyed: objects are freed until the very end.
AttendedClasses& attended() {
  static auto* const classes = new AttendedClasses;
  return *classes;
}

/// A copy, as others may be added meanwhile.
AttendedClass attendedClassOf(id object) {
  const std::scoped_lock lock(attended().mutex);
  for (Class each = object_getClass(object); each != Nil; each = class_getSuperclass(each)) {
    if (const auto found = attended().all.find(each); found != attended().all.end()) return found->second;
  }
  fatal("An object is freed that nobody attends to.");
}

/// In the place of -dealloc.
void endOf(id self, SEL command) {
  const AttendedClass of = attendedClassOf(self);
  for (const Act& act : of.acts) act(self);
  of.dealloc(self, command);
}

}  // namespace

void atEndOfObjects(const char* className, Act act) {
  Class const named = objc_getClass(className);
  if (named == Nil) fatal("There is no class " + std::string(className) + ".");
  const std::scoped_lock lock(attended().mutex);
  AttendedClass& of = attended().all[named];
  of.acts.push_back(std::move(act));
  if (of.dealloc != nullptr) return;
  auto* const method = class_getInstanceMethod(named, @selector(dealloc));
  of.dealloc = reinterpret_cast<Dealloc>(method_getImplementation(method));
  auto* const end = reinterpret_cast<IMP>(&endOf);
  // Fails where the class has a -dealloc of its own.
  if (!class_addMethod(named, @selector(dealloc), end, method_getTypeEncoding(method))) {
    method_setImplementation(method, end);
  }
}

}  // namespace tilwin::macos
