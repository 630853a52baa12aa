#include "tests/macos/c/messages/RunLoop.h"

#include <utility>

#include "tests/macos/c/objects/Values.h"

namespace tilwin::macos::c {

RunLoop& RunLoop::shared() {
  static RunLoop loop;
  return loop;
}

void RunLoop::run() {
  isStopped_ = false;
  while (!isStopped_ && !sources_.empty() && !acts_.empty()) {
    const Act act = std::exchange(acts_.front(), nullptr);
    acts_.pop_front();
    act();
  }
}

void RunLoop::add(CFTypeRef source) {
  if (sources_.insert(source).second) CFRetain(source);
}

void RunLoop::remove(CFTypeRef source) {
  if (sources_.erase(source) != 0) CFRelease(source);
}

}  // namespace tilwin::macos::c

using tilwin::macos::c::RunLoop;

extern "C" {

const CFRunLoopMode kCFRunLoopDefaultMode = tilwin::macos::c::constantString("kCFRunLoopDefaultMode");
const CFRunLoopMode kCFRunLoopCommonModes = tilwin::macos::c::constantString("kCFRunLoopCommonModes");

CFRunLoopRef CFRunLoopGetCurrent() { return reinterpret_cast<CFRunLoopRef>(&RunLoop::shared()); }
CFRunLoopRef CFRunLoopGetMain() { return CFRunLoopGetCurrent(); }
void CFRunLoopAddSource(CFRunLoopRef, CFRunLoopSourceRef source, CFRunLoopMode) {
  RunLoop::shared().add(source);
}
void CFRunLoopRun() { RunLoop::shared().run(); }
void CFRunLoopStop(CFRunLoopRef) { RunLoop::shared().stop(); }

}  // extern "C"
