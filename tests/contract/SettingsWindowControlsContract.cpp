#include <algorithm>
#include <cmath>
#include <variant>

#include "tests/contract/SettingsWindowContract.h"

namespace tilwin::contract {
namespace {

std::vector<double> valuesIn(const std::vector<FormEvent>& events, const std::string& slider) {
  std::vector<double> values;
  for (const auto& event : events) {
    const auto* moved = std::get_if<form::SliderMoved>(&event);
    if (moved != nullptr && moved->id == slider) values.push_back(moved->value);
  }
  return values;
}

bool isNear(Point a, Point b, double slack) {
  return std::abs(a.x - b.x) <= slack && std::abs(a.y - b.y) <= slack;
}

}  // namespace

TEST_P(SettingsWindowContract, AButtonReportsThatItWasPressed) {
  open("areas");
  driver->press("area1.delete");
  driver->press("area1.keys");
  driver->press("add");
  EXPECT_TRUE(received(
      {form::ButtonPressed{"area1.delete"}, form::ButtonPressed{"area1.keys"}, form::ButtonPressed{"add"}}));
}

TEST_P(SettingsWindowContract, ADisabledButtonReportsNothing) {
  findControl<FormButton>(form, "delete-data")->isEnabled = false;
  open("statistics");
  driver->press("delete-data");
  driver->press("show-data");
  EXPECT_TRUE(received({form::ButtonPressed{"show-data"}}));
  findControl<FormButton>(form, "delete-data")->isEnabled = true;
  redraw();
  driver->press("delete-data");
  EXPECT_TRUE(received({form::ButtonPressed{"show-data"}, form::ButtonPressed{"delete-data"}}));
}

TEST_P(SettingsWindowContract, AToggleReportsItsNewState) {
  open("behavior");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->flip("drag");
  driver->flip("login");
  driver->flip("drag");
  EXPECT_TRUE(received({form::ToggleChanged{"drag", false}, form::ToggleChanged{"login", true},
                        form::ToggleChanged{"drag", true}}));
  EXPECT_TRUE(driver->isOn("drag"));
  EXPECT_TRUE(driver->isOn("login"));
}

TEST_P(SettingsWindowContract, AToggleThatTheFormDoesNotFollowFlipsBack) {
  open("behavior");
  reaction = [&](const FormEvent&) { redraw(); };
  driver->flip("login");
  EXPECT_TRUE(received({form::ToggleChanged{"login", true}}));
  EXPECT_FALSE(driver->isOn("login"));
}

TEST_P(SettingsWindowContract, ASliderMovesInItsSteps) {
  open("spacing");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->moveSlider("margin", 0.5);
  const auto values = valuesIn(events, "margin");
  ASSERT_FALSE(values.empty());
  EXPECT_EQ(values.back(), 16);
  EXPECT_TRUE(std::ranges::all_of(values, [](double value) { return value == std::round(value); }));
  EXPECT_TRUE(comesTo(std::string("now 16.000000"), [&] { return driver->caption("margin"); }));
  EXPECT_EQ(values.size(), events.size());
}

TEST_P(SettingsWindowContract, ASliderReachesBothEnds) {
  open("areas");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->moveSlider("area1.Left", 0);
  EXPECT_EQ(findControl<FormSlider>(form, "area1.Left")->value, 0);
  driver->moveSlider("area1.Left", 1);
  EXPECT_EQ(findControl<FormSlider>(form, "area1.Left")->value, 1);
}

TEST_P(SettingsWindowContract, AContinuousSliderStopsAnywhere) {
  open("areas");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->moveSlider("area1.Width", 0.333);
  EXPECT_NEAR(findControl<FormSlider>(form, "area1.Width")->value, 0.333, 0.02);
}

TEST_P(SettingsWindowContract, ASliderThatTheFormDoesNotFollowGoesBack) {
  open("spacing");
  reaction = [&](const FormEvent&) { redraw(); };
  driver->moveSlider("margin", 1);
  EXPECT_FALSE(valuesIn(events, "margin").empty());
  EXPECT_DOUBLE_EQ(driver->sliderPosition("margin"), 0.25);
}

TEST_P(SettingsWindowContract, AFieldReportsItsTextAfterEachKey) {
  open("shortcuts");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->focus("search");
  driver->type("up");
  EXPECT_TRUE(received({form::TextChanged{"search", "u"}, form::TextChanged{"search", "up"}}));
  EXPECT_EQ(driver->text("search"), "up");
}

TEST_P(SettingsWindowContract, APictureReportsADragInFractionsOfItsDisplay) {
  open("areas");
  driver->grab("area1.picture", {0.25, 0.5});
  driver->dragTo("area1.picture", {0.75, 1.25});
  driver->drop("area1.picture");
  ASSERT_TRUE(driver->settle([&] { return events.size() >= 3; })) << testing::PrintToString(events);
  const auto* grabbed = std::get_if<form::PictureGrabbed>(&events.front());
  ASSERT_TRUE(grabbed != nullptr);
  EXPECT_EQ(grabbed->id, "area1.picture");
  EXPECT_PRED3(isNear, grabbed->at, (Point{0.25, 0.5}), 0.01);
  EXPECT_GT(grabbed->reach.width, 0.01);
  EXPECT_LT(grabbed->reach.height, 0.2);
  const auto* dragged = std::get_if<form::PictureDragged>(&events[events.size() - 2]);
  ASSERT_TRUE(dragged != nullptr);
  EXPECT_PRED3(isNear, dragged->at, (Point{0.75, 1.25}), 0.01);
  EXPECT_EQ(events.back(), FormEvent(form::PictureReleased{"area1.picture"}));
}

TEST_P(SettingsWindowContract, ADragGoesOnWhileThePictureIsRedrawn) {
  open("areas");
  reaction = [&](const FormEvent& event) {
    if (const auto* dragged = std::get_if<form::PictureDragged>(&event)) {
      pictureIn(form, dragged->id).tiles = {{{dragged->at.x, 0, 0.2, 1}, true}};
    }
    redraw();
  };
  driver->grab("area1.picture", {0.25, 0.5});
  driver->dragTo("area1.picture", {0.5, 0.5});
  driver->dragTo("area1.picture", {0.125, 0.5});
  driver->drop("area1.picture");
  ASSERT_TRUE(driver->settle(
      [&] { return !events.empty() && std::holds_alternative<form::PictureReleased>(events.back()); }));
  EXPECT_NEAR(driver->tiles("area1.picture").at(0).rect.x, 0.125, 0.01);
}

}  // namespace tilwin::contract
