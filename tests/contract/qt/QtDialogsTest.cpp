#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <optional>

#include "platform/qt/menu/WrappedLabel.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/qt/Pictures.h"
#include "tests/contract/qt/QtDesktop.h"
#include "tests/contract/qt/QtDialogsWorld.h"

namespace tilwin::contract {
namespace {

const DialogText describing{
    .title = "Describe a layout",
    .message =
        "For example: Safari left two thirds, Notes right third. Tilwin reads the words itself, nothing "
        "leaves your computer."};

/// Dialogs as windows of this program.
struct QtDialogWindows : testing::Test {
  /// Shows an alert while these steps are done with its window, and closes it.
  void alert(const DialogText& text, const std::function<void(QWidget& window)>& steps) {
    world->whenOpen([&] {
      steps(*frontDialogWindow());
      world->pressReturn();
    });
    world->dialogs().alert(text);
  }

  std::unique_ptr<DialogsWorld> world = makeQtDialogs();
};

TEST_F(QtDialogWindows, AnOpenOneComesToTheFrontAgain) {
  alert(describing, [&](QWidget& window) {
    const auto other = qtDesktop().window();
    ASSERT_TRUE(qtDesktop().desktop().activate(other.id()));
    ASSERT_TRUE(runMainLoopUntil([&] { return !window.isActiveWindow(); }, desktop::answerTimeout));
    world->dialogs().activate();
    EXPECT_TRUE(runMainLoopUntil([&] { return window.isActiveWindow(); }, desktop::answerTimeout));
    EXPECT_EQ(qtDesktop().desktop().stacking().back(), window.winId());
  });
}

TEST_F(QtDialogWindows, AreTitledAfterTheProgramAndDescribeThemselves) {
  alert(describing, [&](QWidget& window) {
    EXPECT_EQ(qtDesktop().desktop().title(static_cast<desktop::WindowId>(window.winId())), "Tilwin");
    EXPECT_EQ(window.accessibleName().toStdString(), describing.title);
    EXPECT_EQ(window.accessibleDescription().toStdString(), describing.message);
  });
}

TEST_F(QtDialogWindows, ALongWordIsBrokenInsteadOfWideningTheDialog) {
  int ordinary = 0;
  alert(describing, [&](QWidget& window) { ordinary = window.width(); });
  const DialogText text{"Placed what it could", "Could not read “" + std::string(300, 'w') + "” at all"};
  alert(text, [&](QWidget& window) {
    EXPECT_EQ(window.width(), ordinary);
    EXPECT_EQ(world->shown().message, text.message);
    const auto* label = window.findChildren<qt::WrappedLabel*>().last();
    EXPECT_EQ(label->accessibleName().toStdString(), text.message);
    EXPECT_GE(label->height(), 8 * label->fontMetrics().height());
    keepPicture(window, "alert-long-word");
  });
}

TEST_F(QtDialogWindows, AMessageTooLongForTheScreenScrolls) {
  std::string many;
  for (int line = 1; line <= 200; ++line) many += "Could not read “piece " + std::to_string(line) + "”\n";
  alert({"Nothing to place", many}, [&](QWidget& window) {
    EXPECT_LT(window.frameGeometry().height(), window.screen()->availableGeometry().height());
    EXPECT_NE(window.findChild<QScrollArea*>(), nullptr);
    EXPECT_EQ(world->shown().message, many);
    keepPicture(window, "alert-long");
  });
}

/// Pictures to be looked at; that text and background differ enough is checked.
class DialogPictures : public QtDialogWindows, public testing::WithParamInterface<bool> {};

TEST_P(DialogPictures, AreLegible) {
  const bool isDark = GetParam();
  std::optional<DarkColours> dark;
  if (isDark) dark.emplace();
  const std::string colours = isDark ? "dark" : "light";
  alert({"2 windows not open", "These apps in “Desk” have no open window: Mail, Notes"},
        [&](QWidget& window) {
          EXPECT_EQ(window.palette().window().color().lightnessF() < 0.5, isDark);
          keepPicture(window, "alert-" + colours);
        });
  world->whenOpen([&] {
    keepPicture(*frontDialogWindow(), "prompt-" + colours);
    world->type("safari left");
    keepPicture(*frontDialogWindow(), "prompt-typed-" + colours);
    world->pressEscape();
  });
  EXPECT_EQ(world->dialogs().prompt(describing, "Safari left, Notes right"), std::nullopt);
  world->whenOpen([&] {
    keepPicture(*frontDialogWindow(), "confirm-" + colours);
    world->press("Cancel");
  });
  EXPECT_FALSE(world->dialogs().confirm({"Delete the log?", "It cannot be brought back."}, "Delete"));
}

INSTANTIATE_TEST_SUITE_P(Colours, DialogPictures, testing::Bool(),
                         [](const auto& test) { return test.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace tilwin::contract
