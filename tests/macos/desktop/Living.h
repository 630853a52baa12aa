#pragma once

#import <Foundation/Foundation.h>
#import <Foundation/NSDebug.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace tilwin::macos {

/// Counts the objects of classes that have been made and not yet freed since this was. LeakSanitizer does not
/// see them: it is told to ignore what the runtime allocates. Throws if there is no such class.
class Living {
public:
  explicit Living(std::vector<const char*> classes) : classes_(std::move(classes)), before_(all()) {}

  [[nodiscard]] long count() const { return all() - before_; }

private:
  [[nodiscard]] long all() const {
    GSDebugAllocationActive(YES);
    long sum = 0;
    for (const char* each : classes_) {
      Class const named = objc_getClass(each);
      if (named == Nil) throw std::logic_error(std::string("there is no class ") + each);
      sum += GSDebugAllocationCount(named);
    }
    return sum;
  }

  std::vector<const char*> classes_;
  long before_;
};

}  // namespace tilwin::macos
