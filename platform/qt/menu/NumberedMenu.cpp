#include "platform/qt/menu/NumberedMenu.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tilwin::qt {
namespace {

using Kind = MenuItem::Kind;

constexpr int unnumbered = -1;

MenuItem withoutItems(const MenuItem& item) {
  return {.kind = item.kind,
          .title = item.title,
          .choice = item.choice,
          .isChecked = item.isChecked,
          .isEnabled = item.isEnabled};
}

std::vector<MenuItem> separating(const std::vector<MenuItem>& items) {
  std::vector<MenuItem> kept;
  for (const auto& item : items) {
    const bool separates =
        item.kind != Kind::separator || (!kept.empty() && kept.back().kind != Kind::separator);
    if (separates) kept.push_back(item);
  }
  if (!kept.empty() && kept.back().kind == Kind::separator) kept.pop_back();
  return kept;
}

bool isSame(const MenuItem& one, const MenuItem& other) {
  return one.kind == other.kind && one.title == other.title && one.choice == other.choice;
}

bool isReplacement(const MenuItem& one, const MenuItem& other) {
  return one.kind == Kind::command && other.kind == Kind::command &&
         one.choice.command == other.choice.command;
}

/// Gives the items without a number those of the entries that fit; each is given once.
void reuse(std::vector<int>& numbers, std::vector<int>& free, const std::vector<MenuItem>& items,
           const NumberedMenu& former, bool (*fits)(const MenuItem&, const MenuItem&)) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (numbers[i] != unnumbered) continue;
    const auto found =
        std::ranges::find_if(free, [&](int number) { return fits(former.entry(number)->item, items[i]); });
    if (found == free.end()) continue;
    numbers[i] = *found;
    free.erase(found);
  }
}

}  // namespace

NumberedMenu::NumberedMenu() { entries_[0].item.kind = Kind::submenu; }

NumberedMenu::NumberedMenu(const MenuModel& model, const NumberedMenu& former) : next_(former.next_) {
  entries_[0].item.kind = Kind::submenu;
  entries_[0].children = number(model.items, 0, former);
}

const NumberedMenu::Entry* NumberedMenu::entry(int number) const {
  const auto found = entries_.find(number);
  return found == entries_.end() ? nullptr : &found->second;
}

bool NumberedMenu::hasShapeOf(const NumberedMenu& other) const {
  return std::ranges::equal(entries_, other.entries_, [](const auto& one, const auto& two) {
    return one.first == two.first && one.second.children == two.second.children;
  });
}

std::vector<int> NumberedMenu::number(const std::vector<MenuItem>& items, int parent,
                                      const NumberedMenu& former) {
  const auto kept = separating(items);
  const auto* before = former.entry(parent);
  auto free = before == nullptr ? std::vector<int>() : before->children;
  std::vector<int> numbers(kept.size(), unnumbered);
  for (const auto fits : {isSame, isReplacement}) reuse(numbers, free, kept, former, fits);
  for (std::size_t i = 0; i < kept.size(); ++i) numbers[i] = add(kept[i], numbers[i], former);
  return numbers;
}

int NumberedMenu::add(const MenuItem& item, int number, const NumberedMenu& former) {
  if (number == unnumbered) number = next_++;
  auto children = this->number(item.items, number, former);
  entries_[number] = {withoutItems(item), std::move(children)};
  return number;
}

}  // namespace tilwin::qt
