#include "tests/contract/SettingsWindowContract.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace tilwin::contract {
namespace {

ShownRow expectedRow(const FormRow& row) {
  ShownRow shown{.id = row.id, .title = row.title, .note = row.note, .problem = row.problem};
  for (const auto& control : row.controls) {
    shown.controls.push_back(std::visit([](const auto& any) { return any.id; }, control));
  }
  return shown;
}

/// Makes a form what the user asked it to be.
class Obedience {
public:
  explicit Obedience(FormModel& form) : form_(form) {}

  void operator()(const form::ToggleChanged& event) {
    findControl<FormToggle>(form_, event.id)->isOn = event.isOn;
  }
  void operator()(const form::SliderMoved& event) {
    auto& slider = *findControl<FormSlider>(form_, event.id);
    slider.value = event.value;
    slider.caption = "now " + std::to_string(event.value);
  }
  void operator()(const form::TextChanged& event) { findField(form_, event.id)->text = event.text; }
  void operator()(const form::SectionChosen& event) { form_.chosenSection = event.id; }
  template <typename Other>
  void operator()(const Other&) {}

private:
  FormModel& form_;
};

}  // namespace

ShownForm expectedOf(const FormModel& form) {
  ShownForm shown{.windowTitle = form.title};
  for (const auto& section : form.sections) {
    shown.sections.push_back(section.title);
    if (section.id != form.chosenSection) continue;
    shown.chosen = section.title;
    shown.title = section.title;
    shown.help = section.help;
    if (section.groups.empty()) shown.emptyText = section.emptyText;
    for (const auto& group : section.groups) {
      ShownGroup expected{.id = group.id, .heading = group.heading};
      std::ranges::transform(group.rows, std::back_inserter(expected.rows), expectedRow);
      shown.groups.push_back(expected);
    }
  }
  return shown;
}

void SettingsWindowContract::SetUp() {
  window.onEvent([this](const FormEvent& event) {
    events.push_back(event);
    reaction(event);
  });
}

void SettingsWindowContract::TearDown() {
  window.onEvent([](const FormEvent&) {});
  window.close();
}

void SettingsWindowContract::open(const std::string& section) {
  form.chosenSection = section;
  window.show(form);
  ASSERT_TRUE(driver->settle([&] { return driver->isInFront(); })) << "the window does not come to the front";
}

void SettingsWindowContract::obey(const FormEvent& event) {
  std::visit(Obedience(form), event);
  redraw();
}

testing::AssertionResult SettingsWindowContract::received(const std::vector<FormEvent>& expected) {
  driver->settle([&] { return events.size() >= expected.size(); });
  if (events == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "wanted " << testing::PrintToString(expected) << ", but received "
                                     << testing::PrintToString(events);
}

testing::AssertionResult SettingsWindowContract::showsForm() {
  return comesTo(expectedOf(form), [&] { return driver->shown(); });
}

testing::AssertionResult SettingsWindowContract::hasFocus(const std::string& control) {
  return comesTo(control, [&] { return driver->focused(); });
}

void SettingsWindowContract::setRecording(const std::string& id, bool recording) {
  auto& found = *findControl<FormRecorder>(form, id);
  found.isRecording = recording;
  found.title = recording ? "Press keys…" : "Not set";
}

void SettingsWindowContract::openRecording() {
  open("shortcuts");
  setRecording(recorder, true);
  redraw();
  ASSERT_TRUE(hasFocus(recorder));
}

TEST_P(SettingsWindowContract, IsNotOpenBeforeItIsShown) {
  EXPECT_FALSE(window.isOpen());
  window.update(form);
  EXPECT_FALSE(window.isOpen());
}

TEST_P(SettingsWindowContract, ShowsEverySectionOfItsForm) {
  for (const auto& section : sampleForm().sections) {
    open(section.id);
    EXPECT_TRUE(window.isOpen());
    EXPECT_TRUE(showsForm());
  }
  EXPECT_TRUE(received({}));
}

TEST_P(SettingsWindowContract, ShowsWhatItsControlsRead) {
  open("spacing");
  EXPECT_DOUBLE_EQ(driver->sliderPosition("margin"), 0.25);
  EXPECT_EQ(driver->caption("margin"), "8 points around the screen");
  open("behavior");
  EXPECT_TRUE(driver->isOn("drag"));
  EXPECT_FALSE(driver->isOn("login"));
  open("areas");
  EXPECT_EQ(driver->text("area1.name"), "Reading");
  EXPECT_EQ(driver->tiles("area1.picture"), pictureIn(form, "area1.picture").tiles);
  EXPECT_EQ(driver->buttonTitle("area1.keys"), "No shortcut");
}

TEST_P(SettingsWindowContract, AValueOutsideItsRangeIsShownAtTheEnd) {
  findControl<FormSlider>(form, "margin")->value = 64;
  findControl<FormSlider>(form, "gap")->value = -3;
  open("spacing");
  EXPECT_DOUBLE_EQ(driver->sliderPosition("margin"), 1);
  EXPECT_DOUBLE_EQ(driver->sliderPosition("gap"), 0);
  EXPECT_TRUE(received({}));
}

TEST_P(SettingsWindowContract, ShowsATextInPlaceOfGroups) {
  sectionIn(form, "shortcuts").groups.clear();
  open("shortcuts");
  EXPECT_TRUE(showsForm());
  EXPECT_EQ(driver->shown().emptyText, "No shortcut has that name or these keys.");
}

TEST_P(SettingsWindowContract, ShowingItAgainDrawsTheNewFormInTheSameWindow) {
  open("spacing");
  form.title = "Other Settings";
  rowIn(form, "gap-row").title = "Space between windows";
  driver->leaveProgram();
  events.clear();
  open("spacing");
  EXPECT_TRUE(showsForm());
  EXPECT_TRUE(received({}));
}

TEST_P(SettingsWindowContract, TheProgramClosesItWithoutAnEvent) {
  open("spacing");
  window.close();
  EXPECT_FALSE(window.isOpen());
  window.close();
  window.update(form);
  EXPECT_FALSE(window.isOpen());
  EXPECT_TRUE(received({}));
}

TEST_P(SettingsWindowContract, TheUserClosesItAndTheProgramIsTold) {
  open("spacing");
  reaction = [&](const FormEvent&) { EXPECT_FALSE(window.isOpen()); };
  driver->closeByHand();
  EXPECT_TRUE(received({form::WindowClosed{}}));
  EXPECT_FALSE(window.isOpen());
}

TEST_P(SettingsWindowContract, ItOpensAgainAfterItWasClosed) {
  open("spacing");
  driver->closeByHand();
  ASSERT_TRUE(received({form::WindowClosed{}}));
  events.clear();
  open("behavior");
  EXPECT_TRUE(showsForm());
  driver->flip("icon");
  EXPECT_TRUE(received({form::ToggleChanged{"icon", false}}));
}

TEST_P(SettingsWindowContract, TheHandlerMayOpenItAgainWhenItIsClosed) {
  open("spacing");
  reaction = [&](const FormEvent&) {
    if (!window.isOpen()) window.show(form);
  };
  driver->closeByHand();
  EXPECT_TRUE(received({form::WindowClosed{}}));
  EXPECT_TRUE(window.isOpen());
  EXPECT_TRUE(showsForm());
}

TEST_P(SettingsWindowContract, TheHandlerMayCloseItFromAButton) {
  open("areas");
  reaction = [&](const FormEvent&) { window.close(); };
  driver->press("add");
  EXPECT_TRUE(received({form::ButtonPressed{"add"}}));
  EXPECT_FALSE(window.isOpen());
}

TEST_P(SettingsWindowContract, ALaterHandlerReplacesTheEarlierOneEvenFromWithinIt) {
  open("areas");
  std::vector<FormEvent> later;
  reaction = [&](const FormEvent&) {
    window.onEvent([&](const FormEvent& event) { later.push_back(event); });
  };
  driver->press("add");
  EXPECT_TRUE(received({form::ButtonPressed{"add"}}));
  driver->press("area1.delete");
  EXPECT_TRUE(comesTo(std::vector<FormEvent>{form::ButtonPressed{"area1.delete"}}, [&] { return later; }));
  EXPECT_TRUE(received({form::ButtonPressed{"add"}}));
  window.onEvent([](const FormEvent&) {});
}

TEST_P(SettingsWindowContract, TheUserChoosesASection) {
  open("spacing");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->choose("areas");
  EXPECT_TRUE(received({form::SectionChosen{"areas"}}));
  EXPECT_TRUE(showsForm());
  driver->choose("behavior");
  EXPECT_TRUE(showsForm());
}

TEST_P(SettingsWindowContract, ASectionThatTheFormDoesNotFollowIsNotChosen) {
  open("spacing");
  reaction = [&](const FormEvent&) { redraw(); };
  driver->choose("areas");
  EXPECT_TRUE(received({form::SectionChosen{"areas"}}));
  EXPECT_TRUE(showsForm());
}

}  // namespace tilwin::contract
