#include <gtest/gtest.h>

#include <string>

#include "tests/contract/qt/QtDesktop.h"
#include "tests/desktop/harness/Manager.h"

namespace tilwin::contract {
namespace {

using desktop::Manager;

/// The others do so by themselves.
void preventStealing(desktop::Session& session) {
  session
      .start("xfconf-query", {"xfconf-query", "-c", "xfwm4", "-n", "-p", "/general/prevent_focus_stealing",
                              "-t", "bool", "-s", "true"})
      .waitFor(desktop::answerTimeout);
}

/// Window managers keep windows that open by themselves from taking the focus while the user types elsewhere.
class DialogFocus : public testing::TestWithParam<Manager> {};

TEST_P(DialogFocus, APromptTakesTheFocusFromTheWindowTheUserTypesIn) {
  desktop::Session session({.manager = GetParam()});
  auto& desktop = session.desktop();
  const auto program =
      session.start("prompt", {INTERFACE_PROGRAM, "prompt", (session.home().path() / "ask").string()});
  if (GetParam() == Manager::xfwm4) preventStealing(session);
  const auto editor = session.open(desktop::Application::qt);
  std::string printed = "ready\n";
  ASSERT_TRUE(desktop.waitUntil([&] { return program.output() == printed; }));

  // The second time, the program has an earlier input of its own, which the one in the editor is later than.
  for (const auto* answer : {"a", "b"}) {
    ASSERT_TRUE(desktop.activate(editor.window()));
    session.input().press("x");
    session.home().write("ask", "");
    session.input().press("y");
    EXPECT_TRUE(desktop.waitUntil([&] {
      const auto prompt = desktop.windowOfProcess(program.pid());
      return prompt && desktop.activeWindow() == *prompt;
    })) << answer
        << ": " << desktop.title(desktop.activeWindow());
    session.input().press(answer);
    session.input().press("Return");
    printed += std::string(answer) + "\n";
    ASSERT_TRUE(desktop.waitUntil([&] { return program.output() == printed; })) << program.output();
  }
}

INSTANTIATE_TEST_SUITE_P(Managers, DialogFocus, testing::ValuesIn(desktop::draggingManagers),
                         [](const auto& test) { return desktop::traits(test.param).name; });

}  // namespace
}  // namespace tilwin::contract
