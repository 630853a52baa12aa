#include "platform/drawing/FormRows.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace tilwin::drawing {
namespace {

struct ShownControl {
  std::string id{};
  std::size_t kind = 0;
};

}  // namespace

TEST(FormRows, EveryKindOfControlHasAnId) {
  EXPECT_EQ(idOf(FormToggle{.id = "toggle"}), "toggle");
  EXPECT_EQ(idOf(FormSlider{.id = "slider"}), "slider");
  EXPECT_EQ(idOf(FormTextField{.id = "field"}), "field");
  EXPECT_EQ(idOf(FormButton{.id = "button"}), "button");
  EXPECT_EQ(idOf(FormRecorder{.id = "recorder"}), "recorder");
}

TEST(FormRows, ButtonsAndRecordersKeepTheirWidth) {
  EXPECT_TRUE(doesStretch(FormToggle{}));
  EXPECT_TRUE(doesStretch(FormSlider{}));
  EXPECT_TRUE(doesStretch(FormTextField{}));
  EXPECT_FALSE(doesStretch(FormButton{}));
  EXPECT_FALSE(doesStretch(FormRecorder{}));
}

TEST(FormRows, WhatShowsAControlIsTakenOnceAndForItsKindOnly) {
  const FormControl toggle = FormToggle{.id = "edges"};
  const FormControl slider = FormSlider{.id = "edges"};
  std::vector<ShownControl> shown{{"edges", toggle.index()}, {"other", toggle.index()}};
  EXPECT_FALSE(taken(shown, slider));
  const auto match = taken(shown, toggle);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->id, "edges");
  EXPECT_FALSE(taken(shown, toggle));
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_EQ(shown.front().id, "other");
}

TEST(FormRows, ARowOfButtonsAloneHasNeitherTextNorPictureNorOtherControls) {
  const FormRow buttons{.controls = {FormButton{}, FormButton{}}};
  EXPECT_TRUE(isButtonsOnly(buttons));
  for (const auto change :
       {+[](FormRow& row) { row.title = "Title"; }, +[](FormRow& row) { row.note = "Note"; },
        +[](FormRow& row) { row.problem = "Problem"; }, +[](FormRow& row) { row.picture = FormPicture{}; },
        +[](FormRow& row) { row.controls.emplace_back(FormToggle{}); }}) {
    FormRow changed = buttons;
    change(changed);
    EXPECT_FALSE(isButtonsOnly(changed));
  }
}

TEST(FormRows, AProblemIsRemarkedBeforeTheNote) {
  EXPECT_EQ(remarkOf({.note = "Note.", .problem = "Problem."}), "Problem. Note.");
  EXPECT_EQ(remarkOf({.note = "Note."}), "Note.");
  EXPECT_EQ(remarkOf({.problem = "Problem."}), "Problem.");
  EXPECT_EQ(remarkOf({}), "");
}

}  // namespace tilwin::drawing
