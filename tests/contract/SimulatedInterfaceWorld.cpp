#include "platform/simulated/SimulatedInterface.h"

#include <deque>
#include <utility>

#include "platform/simulated/SimulatedMainQueue.h"
#include "tests/contract/DialogsContract.h"
#include "tests/contract/StatusItemContract.h"

namespace tilwin::contract {
namespace {

class SimulatedStatusItemWorld : public StatusItemWorld {
public:
  StatusItem& item() override { return item_; }
  bool isIconShown() override { return item_.isInstalled() && item_.isVisible(); }
  void openMenu(MouseButton) override { open_ = item_.open(); }
  bool isMenuOpen() override { return open_.has_value(); }
  std::vector<ShownEntry> shown() override { return entriesOf(open_->items); }
  void choose(const std::vector<std::string>& path) override {
    open_.reset();
    EXPECT_TRUE(item_.choose(path));
  }
  void dismiss() override { open_.reset(); }
  void rest() override {}
  bool settle(const std::function<bool()>& condition) override { return condition(); }

private:
  SimulatedStatusItem item_;
  std::optional<MenuModel> open_;
};

/// Which dialog is open follows from what the simulated one has recorded.
class SimulatedDialogsWorld : public DialogsWorld {
public:
  SimulatedDialogsWorld() {
    simulated_.whileOpen = [this] { beAnswered(); };
  }

  Dialogs& dialogs() override { return simulated_; }
  MainQueue& mainQueue() override { return queue_; }
  void whenOpen(Steps steps) override { steps_.push_back(std::move(steps)); }

  ShownDialog shown() override {
    const auto& open = simulated_.openDialogs().back();
    ShownDialog shown{open.text.title, open.text.message, open.buttons};
    if (open.placeholder) shown.field = ShownField{*open.placeholder, typed_.back(), {360, 24}, true};
    return shown;
  }
  void type(const std::string& text) override { typed_.back() += text; }
  void press(const std::string& button) override {
    if (button == "Cancel") return;
    EXPECT_EQ(button, simulated_.openDialogs().back().buttons.front());
    accept();
  }
  void pressReturn() override { accept(); }
  void pressEscape() override {}
  void closeWindow() override {}

private:
  void beAnswered() {
    simulated_.setAccepting(false);
    if (steps_.empty()) return;
    const auto steps = std::move(steps_.front());
    steps_.pop_front();
    typed_.emplace_back();
    steps();
    typed_.pop_back();
  }
  void accept() {
    const auto& open = simulated_.openDialogs().back();
    if (open.placeholder) simulated_.answer(typed_.back());
    simulated_.setAccepting(true);
  }

  SimulatedDialogs simulated_;
  SimulatedMainQueue queue_;
  std::deque<Steps> steps_;
  std::vector<std::string> typed_;
};

std::unique_ptr<StatusItemWorld> makeSimulatedStatusItem() {
  return std::make_unique<SimulatedStatusItemWorld>();
}
std::unique_ptr<DialogsWorld> makeSimulatedDialogs() { return std::make_unique<SimulatedDialogsWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, StatusItemContract, testing::Values(&makeSimulatedStatusItem));
INSTANTIATE_TEST_SUITE_P(Simulated, DialogsContract, testing::Values(&makeSimulatedDialogs));

}  // namespace tilwin::contract
