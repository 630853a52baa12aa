#include "platform/drawing/FormRows.h"

#include <gtest/gtest.h>

namespace tilwin::drawing {

TEST(FormRows, EveryKindOfControlHasAnId) {
  EXPECT_EQ(idOf(FormToggle{.id = "toggle"}), "toggle");
  EXPECT_EQ(idOf(FormSlider{.id = "slider"}), "slider");
  EXPECT_EQ(idOf(FormTextField{.id = "field"}), "field");
  EXPECT_EQ(idOf(FormButton{.id = "button"}), "button");
  EXPECT_EQ(idOf(FormRecorder{.id = "recorder"}), "recorder");
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
