#include "core/layouts/LayoutCoding.h"

#include "tests/core/layouts/Layouts.h"

#include <gtest/gtest.h>

namespace tilwin {
namespace {

const std::string region =
    R"({"region":{"_0":{"columns":2,"rows":1,"col":1,"row":0,"colSpan":1,"rowSpan":1}}})";
const std::string normalized = R"({"normalized":{"_0":{"x":0.25,"y":0,"width":0.5,"height":1}}})";

const std::string wholeLayout =
    R"({"id":"0B5E9F6A-33B5-4C5E-9A34-6F5D0E0A1B2C","isAutomatic":true,"name":"Desk",)"
    R"("signature":{"key":"800x600@0,0"},"slots":[{"appName":"Mail","bundleID":"org.example.mail",)"
    R"("displayIndex":1,"target":)" +
    region + R"(,"titleContains":"Inbox"},{"displayIndex":0,"target":)" + normalized +
    R"(}],"updatedAt":"2026-03-01T09:00:05Z"})";

template <typename T>
std::string errorOf(const std::string& text) {
  const auto result = decodeJson<T>(text);
  const auto* error = std::get_if<JsonError>(&result);
  return error == nullptr ? "no error" : error->what();
}

/// `text` with the first `what` replaced.
std::string with(std::string text, const std::string& what, const std::string& by) {
  const auto place = text.find(what);
  EXPECT_NE(place, std::string::npos) << what;
  return text.replace(place, what.size(), by);
}

Layout expectedLayout() {
  return {.id = *Uuid::parse("0B5E9F6A-33B5-4C5E-9A34-6F5D0E0A1B2C"),
          .name = "Desk",
          .slots = {{.bundleID = "org.example.mail",
                     .appName = "Mail",
                     .titleContains = "Inbox",
                     .displayIndex = 1,
                     .target = GridRegion{2, 1, 1, 0, 1, 1}},
                    {.displayIndex = 0, .target = NormalizedRect{0.25, 0, 0.5, 1}}},
          .signature = DisplaySignature(displaysAt("800x600+0+0")),
          .isAutomatic = true,
          .updatedAt = at(5)};
}

TEST(LayoutCoding, ReadsEveryField) {
  EXPECT_EQ(std::get<Layout>(decodeJson<Layout>(wholeLayout)), expectedLayout());
}

TEST(LayoutCoding, WritesExactlyTheKeysOfWhatIsThere) {
  EXPECT_EQ(std::get<std::string>(encodeJson(expectedLayout())), wholeLayout);
}

TEST(LayoutCoding, LeavesOutTheSignatureOfALayoutForAnyDisplays) {
  Layout layout = expectedLayout();
  layout.signature.reset();
  const auto text = std::get<std::string>(encodeJson(layout));
  EXPECT_EQ(text.find("signature"), std::string::npos);
  EXPECT_EQ(std::get<Layout>(decodeJson<Layout>(text)), layout);
}

TEST(LayoutCoding, NeedsEveryKeyButTheSignature) {
  const JsonReader whole = JsonReader::parse(wholeLayout);
  for (const std::string& key : whole.keys()) {
    const auto result = decodeJson<Layout>(with(wholeLayout, "\"" + key + "\":", "\"was " + key + "\":"));
    EXPECT_EQ(std::holds_alternative<Layout>(result), key == "signature") << key;
  }
}

TEST(LayoutCoding, FailsForAnotherKindOfValueInAnyField) {
  for (const auto& [value, wrong] : std::vector<std::pair<std::string, std::string>>{
           {R"("0B5E9F6A-33B5-4C5E-9A34-6F5D0E0A1B2C")", R"("0B5E9F6A")"},
           {R"("Desk")", "7"},
           {R"("org.example.mail")", "[]"},
           {R"("displayIndex":1)", R"("displayIndex":1.5)"},
           {R"("displayIndex":1)", R"("displayIndex":"1")"},
           {R"("displayIndex":1)", R"("displayIndex":1e300)"},
           {R"("columns":2)", R"("columns":null)"},
           {R"({"key":"800x600@0,0"})", R"("800x600@0,0")"},
           {"true", "1"},
           {R"("2026-03-01T09:00:05Z")", "772448405"}}) {
    EXPECT_TRUE(std::holds_alternative<JsonError>(decodeJson<Layout>(with(wholeLayout, value, wrong))))
        << wrong;
  }
}

TEST(SlotTargetCoding, FailsForMoreThanOneKind) {
  const std::string both = region.substr(0, region.size() - 1) + "," + normalized.substr(1);
  EXPECT_EQ(errorOf<SlotTarget>(both), "Invalid number of keys found, expected one.");
  const auto result = decodeJson<SlotTarget>(both);
  EXPECT_EQ(std::get<JsonError>(result).kind, JsonError::Kind::wrongType);
}

TEST(SlotTargetCoding, FailsForNoKind) {
  EXPECT_EQ(errorOf<SlotTarget>("{}"), "Invalid number of keys found, expected one.");
}

TEST(SlotTargetCoding, FailsForAnUnknownKind) {
  EXPECT_EQ(errorOf<SlotTarget>(R"({"polygon":{"_0":{}}})"), "no kind of target is called \"polygon\"");
}

TEST(SlotTargetCoding, FailsWithoutThePayload) {
  for (const char* text :
       {R"({"region":null})", R"({"region":{}})", R"({"region":{"_1":{}}})", R"({"region":[]})",
        R"({"normalized":{"_0":null}})", "[]", "null", R"("region")"}) {
    EXPECT_TRUE(std::holds_alternative<JsonError>(decodeJson<SlotTarget>(text))) << text;
  }
}

TEST(SlotTargetCoding, TakesARegionAsItStandsWithoutBringingItIntoItsGrid) {
  const auto target = std::get<SlotTarget>(decodeJson<SlotTarget>(with(region, "\"col\":1", "\"col\":9")));
  EXPECT_EQ(std::get<GridRegion>(target).col, 9);
}

TEST(SlotTargetCoding, TakesFractionsAsTheyStand) {
  const auto target = std::get<SlotTarget>(decodeJson<SlotTarget>(with(normalized, "0.25", "-7e3")));
  EXPECT_EQ(std::get<NormalizedRect>(target).x, -7000);
}

TEST(LayoutStoreCoding, IsAnObjectWithTheListOfLayouts) {
  EXPECT_EQ(std::get<std::string>(encodeJson(LayoutStore{})), R"({"layouts":[]})");
  const auto store = std::get<LayoutStore>(decodeJson<LayoutStore>(R"({"layouts":[)" + wholeLayout + "]}"));
  EXPECT_EQ(store.layouts, std::vector<Layout>{expectedLayout()});
}

}  // namespace
}  // namespace tilwin
