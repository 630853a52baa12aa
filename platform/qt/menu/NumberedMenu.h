#pragma once

#include <map>
#include <vector>

#include "platform/ports/MenuModel.h"

namespace tilwin::qt {

/// A menu whose entries have numbers, by which a panel in another program asks for them. The root is 0.
class NumberedMenu {
public:
  struct Entry {
    MenuItem item{};  ///< without the items of a submenu
    std::vector<int> children{};

    bool operator==(const Entry&) const = default;
  };

  /// An empty menu.
  NumberedMenu();
  /// The menu that follows `former` in the same panel. An entry keeps its number if it is the same, or if it
  /// took the place of one with the same command, so that a panel changes only what differs. A number that is
  /// no longer used is never used again. Separators that separate nothing are left out.
  NumberedMenu(const MenuModel& model, const NumberedMenu& former);

  /// Null if no entry has this number.
  [[nodiscard]] const Entry* entry(int number) const;
  [[nodiscard]] const std::map<int, Entry>& entries() const { return entries_; }
  /// Whether the same numbers are in the same places.
  [[nodiscard]] bool hasShapeOf(const NumberedMenu& other) const;

private:
  std::vector<int> number(const std::vector<MenuItem>& items, int parent, const NumberedMenu& former);
  int add(const MenuItem& item, int number, const NumberedMenu& former);

  std::map<int, Entry> entries_;
  int next_ = 1;
};

}  // namespace tilwin::qt
