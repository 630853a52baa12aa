#include "platform/simulated/SimulatedInterface.h"

#include <algorithm>

namespace tilwin {
namespace {

bool isTitled(const MenuItem& item, const std::string& title) {
  return item.kind != MenuItem::Kind::separator &&
         (item.title == title || item.title.starts_with(title + "    "));
}

}  // namespace

bool SimulatedStatusItem::choose(const std::vector<std::string>& path) {
  const MenuModel menu = makeMenu_();
  const std::vector<MenuItem>* items = &menu.items;
  const MenuItem* chosen = nullptr;
  for (const auto& title : path) {
    const auto found = std::ranges::find_if(*items, [&](const auto& item) { return isTitled(item, title); });
    if (found == items->end()) return false;
    chosen = &*found;
    items = &found->items;
  }
  if (chosen == nullptr || chosen->kind != MenuItem::Kind::command || !chosen->isEnabled) return false;
  onChoice_(chosen->choice);
  return true;
}

}  // namespace tilwin
