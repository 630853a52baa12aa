// For adapters that show windows: starts a desktop, then the tests as an application on it.

#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>

#include "tests/contract/qt/QtDesktop.h"
#include "tests/desktop/harness/ExitGuard.h"

namespace {

tilwin::desktop::Session* session = nullptr;

/// Gives this process the environment of a program on the desktop.
void enter(const tilwin::desktop::Environment& environment) {
  for (const auto& variable : environment.strings()) {
    const auto equals = variable.find('=');
    ::setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
  }
}

}  // namespace

namespace tilwin::contract {

desktop::Session& qtDesktop() { return *session; }

desktop::ChildProcess startPlain(Panel panel, PanelLook look, int iconSide) {
  return desktop::startPanel(qtDesktop(), panel, {.look = look, .isPlain = true, .iconSide = iconSide});
}

}  // namespace tilwin::contract

int main(int argc, char** argv) {
  const tilwin::desktop::EndOnSignal endOnSignal;
  tilwin::desktop::Session desktop;
  session = &desktop;
  enter(desktop.environment());
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
