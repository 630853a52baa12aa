#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <set>
#include <string>
#include <vector>

namespace tilwin::macos::c {

class PortObject;

/// The message ports of all programs in the user's session, by their names.
class MessagePorts {
public:
  static MessagePorts& shared();

  /// Another program has a port with this name, and answers nothing.
  void holdElsewhere(const std::string& name) { elsewhere_.insert(name); }
  void letGoElsewhere(const std::string& name) { elsewhere_.erase(name); }
  [[nodiscard]] bool isElsewhere(const std::string& name) const { return elsewhere_.contains(name); }

  /// Valid ports; null if this process has none of that name.
  [[nodiscard]] PortObject* local(const std::string& name) const;
  void add(PortObject& port) { ports_.push_back(&port); }
  void remove(const PortObject& port) { std::erase(ports_, &port); }
  /// Tells those who hold the other end.
  void invalidateRemotes(const std::string& name);

private:
  std::set<std::string> elsewhere_;
  std::vector<PortObject*> ports_;
};

}  // namespace tilwin::macos::c
