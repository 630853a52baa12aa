#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <deque>
#include <functional>
#include <set>

namespace tilwin::macos::c {

/// The one run loop of this process, as far as message ports need it: others act while it runs.
class RunLoop {
public:
  using Act = std::function<void()>;

  static RunLoop& shared();

  /// What another program does the next time that this one waits in its run loop.
  void meanwhile(Act act) { acts_.push_back(std::move(act)); }
  /// Ends when it is stopped, has no sources, or nothing more will happen.
  void run();
  void stop() { isStopped_ = true; }

  void add(CFTypeRef source);
  void remove(CFTypeRef source);
  [[nodiscard]] bool has(CFTypeRef source) const { return sources_.contains(source); }

private:
  std::deque<Act> acts_;
  std::set<CFTypeRef> sources_;
  bool isStopped_ = false;
};

}  // namespace tilwin::macos::c
