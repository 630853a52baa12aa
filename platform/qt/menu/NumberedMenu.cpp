#include "platform/qt/menu/NumberedMenu.h"

#include <cstddef>
#include <utility>

namespace tilwin::qt {

NumberedMenu::NumberedMenu(MenuModel model, int first) : model_(std::move(model)), first_(first) {
  root_.item.kind = MenuItem::Kind::submenu;
  root_.children = number(model_.items);
}

const NumberedMenu::Entry* NumberedMenu::entry(int number) const {
  if (number == 0) return &root_;
  if (number < first_ || number >= next()) return nullptr;
  return &entries_[static_cast<std::size_t>(number - first_)];
}

bool NumberedMenu::isSubmenu(int number) const {
  const Entry* found = entry(number);
  return found != nullptr && found->item.kind == MenuItem::Kind::submenu;
}

std::vector<int> NumberedMenu::number(const std::vector<MenuItem>& items) {
  std::vector<int> numbers;
  for (const auto& item : items) {
    const bool separates = item.kind == MenuItem::Kind::separator;
    if (separates && (numbers.empty() || isSeparator(numbers.back()))) continue;
    numbers.push_back(next());
    entries_.push_back(
        {.item = {
             .kind = item.kind, .title = item.title, .choice = item.choice, .isChecked = item.isChecked}});
    // The entries of the submenu move those before them in memory.
    auto children = number(item.items);
    entries_[static_cast<std::size_t>(numbers.back() - first_)].children = std::move(children);
  }
  if (!numbers.empty() && isSeparator(numbers.back())) numbers.pop_back();
  return numbers;
}

bool NumberedMenu::isSeparator(int number) const {
  return entry(number)->item.kind == MenuItem::Kind::separator;
}

}  // namespace tilwin::qt
