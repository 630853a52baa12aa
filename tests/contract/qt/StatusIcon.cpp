#include "tests/contract/qt/StatusIcon.h"

namespace tilwin::contract {

StatusIcon::StatusIcon() {
  item.install(
      filledHalf, [this] { return menu; },
      [this](const MenuChoice& choice) { chosen.push_back(choice.command); });
  item.setVisible(true);
}

bool StatusIcon::comes() {
  return runMainLoopUntil([] { return findIcon().has_value(); }, desktop::startTimeout);
}

bool StatusIcon::goes() {
  return runMainLoopUntil([] { return !findIcon(); }, desktop::answerTimeout);
}

bool StatusIcon::isAtTheTop() {
  const auto icon = findIcon();
  return icon && icon->centre().y < 100;
}

void StatusIcon::click(int button) {
  if (const auto icon = findIcon()) qtDesktop().input().click(icon->centre(), button);
}

bool StatusIcon::isChosen(std::size_t times) const {
  return runMainLoopUntil([&] { return chosen.size() >= times; }, desktop::answerTimeout);
}

}  // namespace tilwin::contract
