#include "tests/contract/DialogsContract.h"

namespace tilwin::contract {

std::optional<std::string> DialogsContract::prompt(const DialogsWorld::Steps& steps) {
  world->whenOpen(steps);
  dialogs.activate();
  return dialogs.prompt(text, placeholder);
}

bool DialogsContract::confirm(const DialogsWorld::Steps& steps) {
  world->whenOpen(steps);
  dialogs.activate();
  return dialogs.confirm(text, "Delete");
}

void DialogsContract::alert(const DialogsWorld::Steps& steps) {
  world->whenOpen(steps);
  dialogs.activate();
  dialogs.alert(text);
}

TEST_P(DialogsContract, AnAlertShowsItsTextsAndOneButton) {
  ShownDialog shown;
  alert([&] {
    shown = world->shown();
    world->press("OK");
  });
  EXPECT_EQ(shown, (ShownDialog{text.title, text.message, {"OK"}}));
}

TEST_P(DialogsContract, AnAlertIsOverWithReturnEscapeOrItsFrame) {
  int closed = 0;
  for (auto close : {&DialogsWorld::pressReturn, &DialogsWorld::pressEscape, &DialogsWorld::closeWindow}) {
    alert([&] { ((*world).*close)(); });
    ++closed;
  }
  EXPECT_EQ(closed, 3);
}

TEST_P(DialogsContract, APromptShowsItsTextsAnEmptyFieldWithTheFocusAndTwoButtons) {
  ShownDialog shown;
  prompt([&] {
    shown = world->shown();
    world->press("Cancel");
  });
  const ShownField field{.placeholder = placeholder, .size = {360, 24}, .hasFocus = true};
  EXPECT_EQ(shown, (ShownDialog{text.title, text.message, {"OK", "Cancel"}, field}));
}

TEST_P(DialogsContract, TypingGoesToTheFieldOfAPrompt) {
  EXPECT_EQ(prompt([&] {
              world->type("desk 2");
              EXPECT_EQ(world->shown().field->text, "desk 2");
              world->press("OK");
            }),
            "desk 2");
}

TEST_P(DialogsContract, ReturnAcceptsAPrompt) {
  EXPECT_EQ(prompt([&] {
              world->type("writing");
              world->pressReturn();
            }),
            "writing");
}

TEST_P(DialogsContract, AnEmptyTextIsAnAnswerToo) {
  EXPECT_EQ(prompt([&] { world->press("OK"); }), "");
}

TEST_P(DialogsContract, CancelEscapeAndTheFrameCancelAPrompt) {
  EXPECT_EQ(prompt([&] {
              world->type("writing");
              world->press("Cancel");
            }),
            std::nullopt);
  EXPECT_EQ(prompt([&] {
              world->type("writing");
              world->pressEscape();
            }),
            std::nullopt);
  EXPECT_EQ(prompt([&] {
              world->type("writing");
              world->closeWindow();
            }),
            std::nullopt);
}

TEST_P(DialogsContract, EachPromptBeginsEmpty) {
  EXPECT_EQ(prompt([&] {
              world->type("first");
              world->pressReturn();
            }),
            "first");
  EXPECT_EQ(prompt([&] { world->pressReturn(); }), "");
}

TEST_P(DialogsContract, AConfirmationShowsItsTextsAndTheGivenButton) {
  ShownDialog shown;
  EXPECT_TRUE(confirm([&] {
    shown = world->shown();
    world->press("Delete");
  }));
  EXPECT_EQ(shown, (ShownDialog{text.title, text.message, {"Delete", "Cancel"}}));
}

TEST_P(DialogsContract, AConfirmationReturnsWhetherTheUserAccepted) {
  EXPECT_TRUE(confirm([&] { world->pressReturn(); }));
  EXPECT_FALSE(confirm([&] { world->press("Cancel"); }));
  EXPECT_FALSE(confirm([&] { world->pressEscape(); }));
  EXPECT_FALSE(confirm([&] { world->closeWindow(); }));
}

TEST_P(DialogsContract, TextsAreShownWithoutMarkup) {
  text = {.title = "<b>R&D</b> &File",
          .message = "<a href=\"x\">a_b</a> &amp; 50 %\nNo single open app matches “<i>”\n\n**three**"};
  placeholder = "&Safari <left>";
  ShownDialog shown;
  prompt([&] {
    shown = world->shown();
    world->pressEscape();
  });
  EXPECT_EQ(shown.title, text.title);
  EXPECT_EQ(shown.message, text.message);
  ASSERT_TRUE(shown.field);
  EXPECT_EQ(shown.field->placeholder, placeholder);
}

TEST_P(DialogsContract, ADialogMayHaveNoMessage) {
  text.message.clear();
  ShownDialog shown;
  alert([&] {
    shown = world->shown();
    world->pressReturn();
  });
  EXPECT_EQ(shown, (ShownDialog{text.title, "", {"OK"}}));
}

TEST_P(DialogsContract, ADialogThatOpensWhileAnotherIsOpenIsAnsweredFirst) {
  std::vector<std::string> order;
  const auto answer = prompt([&] {
    world->type("outer");
    alert([&] { world->pressReturn(); });
    order.emplace_back("alert");
    world->pressReturn();
  });
  order.emplace_back("prompt");
  EXPECT_EQ(answer, "outer");
  EXPECT_EQ(order, (std::vector<std::string>{"alert", "prompt"}));
}

TEST_P(DialogsContract, AnOpenDialogIsCancelledWhenTheMainQueueStops) {
  std::optional<std::string> answer = "not asked";
  bool accepted = true;
  world->mainQueue().post([&] {
    answer = prompt([&] {
      world->type("half");
      world->mainQueue().stop(3);
    });
    accepted = dialogs.confirm(text, "Delete");
  });
  EXPECT_EQ(world->mainQueue().run(), 3);
  EXPECT_EQ(answer, std::nullopt);
  EXPECT_FALSE(accepted);
}

}  // namespace tilwin::contract
