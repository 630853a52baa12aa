// A program that shows one thing, for tests of how a desktop treats it from outside:
//
//   interface-program icon            shows a status icon and prints the command that is chosen in its menu
//   interface-program prompt FILE     asks for a text each time the file comes to exist, and prints it

#include <QApplication>
#include <QTimer>
#include <filesystem>
#include <iostream>

#include "platform/qt/menu/QtDialogs.h"
#include "platform/qt/menu/QtStatusItem.h"
#include "tests/contract/qt/StatusImage.h"

namespace {

using namespace tilwin;

MenuModel wholeMenu() {
  return {{MenuItem::command("First", {"first", ""}), MenuItem::command("Second", {"second", ""})}};
}

int showIcon() {
  qt::QtStatusItem item;
  item.install(contract::filledHalf, wholeMenu,
               [](const MenuChoice& choice) { std::cout << choice.command << std::endl; });
  item.setVisible(true);
  return QApplication::exec();
}

int promptWheneverThereIs(const std::filesystem::path& file) {
  qt::QtDialogs dialogs;
  QTimer look;
  look.callOnTimeout([&] {
    if (!std::filesystem::remove(file)) return;
    dialogs.activate();
    const auto answer = dialogs.prompt({"Save this arrangement", "Name it."}, "");
    std::cout << answer.value_or("(cancelled)") << std::endl;
  });
  look.start(20);
  std::cout << "ready" << std::endl;
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return argc > 2 ? promptWheneverThereIs(argv[2]) : showIcon();
}
