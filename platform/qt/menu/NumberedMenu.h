#pragma once

#include <vector>

#include "platform/ports/MenuModel.h"

namespace tilwin::qt {

/// A menu whose entries have numbers, by which a panel in another program asks for them. The root is 0. No
/// number is given twice in one run, so that nothing the panel remembers of an older menu is taken for a new
/// entry.
class NumberedMenu {
public:
  struct Entry {
    MenuItem item{};  ///< without the items of a submenu
    std::vector<int> children{};
  };

  NumberedMenu() : NumberedMenu({}, 1) {}
  /// Gives numbers from `first` on. Separators that separate nothing are left out.
  NumberedMenu(MenuModel model, int first);

  [[nodiscard]] const MenuModel& model() const { return model_; }
  /// Null if no entry has this number.
  [[nodiscard]] const Entry* entry(int number) const;
  [[nodiscard]] bool isSubmenu(int number) const;
  /// The first number that the next menu may use.
  [[nodiscard]] int next() const { return first_ + static_cast<int>(entries_.size()); }

private:
  std::vector<int> number(const std::vector<MenuItem>& items);
  [[nodiscard]] bool isSeparator(int number) const;

  MenuModel model_;
  int first_;
  Entry root_;
  std::vector<Entry> entries_;
};

}  // namespace tilwin::qt
