#include "platform/simulated/DisplayText.h"

#include <gtest/gtest.h>

namespace tilwin {
namespace {

std::vector<DisplayInfo> displays(std::string_view text) {
  const auto result = parseDisplays(text);
  const auto* error = std::get_if<DisplayTextError>(&result);
  if (error != nullptr) ADD_FAILURE() << error->message;
  return error == nullptr ? std::get<std::vector<DisplayInfo>>(result) : std::vector<DisplayInfo>();
}

TEST(DisplayText, NamesOneDisplay) {
  const Rect frame{0, 0, 1440, 900};
  EXPECT_EQ(displays("1440x900+0+0"), std::vector{(DisplayInfo{1, frame, frame, true})});
}

TEST(DisplayText, NamesSeveralTheFirstOfWhichIsPrimary) {
  const Rect first{0, 0, 1440, 900};
  const Rect second{1440, -200, 2560, 1440};
  const Rect third{-1080, 30, 1080, 1920};
  EXPECT_EQ(displays("1440x900+0+0,2560x1440+1440-200,1080x1920-1080+30"),
            (std::vector{DisplayInfo{1, first, first, true}, DisplayInfo{2, second, second, false},
                         DisplayInfo{3, third, third, false}}));
}

TEST(DisplayText, OtherTextsAreErrorsThatNameThePart) {
  for (const std::string_view bad :
       {"", "1440", "1440x900", "1440x900+0", "1440x900+0+0+0", "0x900+0+0", "1440x0+0+0", "-5x900+0+0",
        "1440x900+0+0 ", " 1440x900+0+0", "1440X900+0+0", "1440x900+-1+0", "1440x900++1+0", "1.5x900+0+0",
        "99999999999x900+0+0"}) {
    for (const std::string& text :
         {std::string(bad), "800x600+0+0," + std::string(bad), std::string(bad) + ",800x600+0+0"}) {
      EXPECT_EQ(parseDisplays(text),
                (std::variant<std::vector<DisplayInfo>, DisplayTextError>(
                    DisplayTextError{"not a display, WIDTHxHEIGHT+X+Y: \"" + std::string(bad) + "\""})))
          << text;
    }
  }
}

}  // namespace
}  // namespace tilwin
