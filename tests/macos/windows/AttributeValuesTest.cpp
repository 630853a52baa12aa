#include "platform/macos/windows/AttributeValues.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>
#include <vector>

#include "tests/macos/c/accessibility/AccessibilityObjects.h"
#include "tests/macos/c/objects/Values.h"

namespace tilwin::macos {
namespace {

using Elements = std::vector<AccessibilityElementRef>;

/// A value and the object made of it, released at the end.
struct AttributeValues : testing::Test {
  static AccessibilityValue read(CFTypeRef object) { return attributeValue(created(object).get()); }
  static AccessibilityValue thereAndBack(const AccessibilityValue& value) {
    return attributeValue(attributeObject(value).get());
  }
  static CFTypeRef number(double of) { return c::objects().make<c::NumberObject>(of); }
  static CFTypeRef geometry(c::GeometryObject::Value of) { return c::objects().make<c::GeometryObject>(of); }
  static AccessibilityElementRef application(std::int32_t processID) {
    return std::make_shared<MacElement>(created(AXUIElementCreateApplication(processID)));
  }
};

TEST_F(AttributeValues, TextFlagsPointsAndSizesComeBackAsTheyWere) {
  for (const AccessibilityValue& value :
       {AccessibilityValue("Größe"), AccessibilityValue(""), AccessibilityValue(true),
        AccessibilityValue(false), AccessibilityValue(Point{-12.5, 1e6}),
        AccessibilityValue(Size{0, 33.25})}) {
    EXPECT_EQ(thereAndBack(value), value);
  }
}

TEST_F(AttributeValues, AnElementComesBackAsAReferenceToTheSame) {
  const auto value = thereAndBack(application(7));
  const auto* element = std::get_if<AccessibilityElementRef>(&value);
  ASSERT_NE(element, nullptr);
  EXPECT_TRUE(CFEqual(elementOf(*element), elementOf(application(7))));
  EXPECT_FALSE(CFEqual(elementOf(*element), elementOf(application(8))));
}

TEST_F(AttributeValues, AListComesBackInItsOrder) {
  const auto value = thereAndBack(Elements{application(7), application(8)});
  const auto* list = std::get_if<Elements>(&value);
  ASSERT_NE(list, nullptr);
  ASSERT_EQ(list->size(), 2U);
  EXPECT_TRUE(CFEqual(elementOf(list->at(0)), elementOf(application(7))));
  EXPECT_TRUE(CFEqual(elementOf(list->at(1)), elementOf(application(8))));
  EXPECT_EQ(thereAndBack(Elements{}), AccessibilityValue(Elements{}));
}

TEST_F(AttributeValues, AnElementOutlivesTheListItCameIn) {
  Elements kept;
  {
    const auto value = thereAndBack(Elements{application(7)});
    kept = std::get<Elements>(value);
  }
  EXPECT_EQ(c::objects().owners(elementOf(kept.at(0))), 1);
}

TEST_F(AttributeValues, WhatTheProgramDoesNotKnowIsNoValue) {
  const AccessibilityValue nothing;
  EXPECT_EQ(attributeValue(nullptr), nothing);
  EXPECT_EQ(read(number(1)), nothing);
  EXPECT_EQ(read(c::objects().make<c::DataObject>("bytes")), nothing);
  EXPECT_EQ(read(geometry(c::RectOfDoubles{{1, 2}, {3, 4}})), nothing);
  EXPECT_EQ(read(geometry(CFRange{1, 2})), nothing);
  EXPECT_EQ(read(geometry(kAXErrorNoValue)), nothing);
}

TEST_F(AttributeValues, APointOrASizeThatIsNotFiniteIsNoValue) {
  constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
  constexpr double endless = std::numeric_limits<double>::infinity();
  const AccessibilityValue nothing;
  for (const double odd : {nowhere, endless, -endless}) {
    EXPECT_EQ(read(geometry(CGPoint{odd, 0})), nothing);
    EXPECT_EQ(read(geometry(CGPoint{0, odd})), nothing);
    EXPECT_EQ(read(geometry(CGSize{odd, 0})), nothing);
    EXPECT_EQ(read(geometry(CGSize{0, odd})), nothing);
  }
}

TEST_F(AttributeValues, WhatIsNoElementIsLeftOutOfAList) {
  const auto element = created(AXUIElementCreateApplication(7));
  const auto text = created(c::makeString("no window"));
  const auto list = created(CFArrayCreate(kCFAllocatorDefault, nullptr, 0, &kCFTypeArrayCallBacks));
  std::array<CFTypeRef, 4> entries{text.get(), element.get(), kCFBooleanTrue, list.get()};
  const auto value = read(CFArrayCreate(kCFAllocatorDefault, entries.data(), 4, &kCFTypeArrayCallBacks));
  ASSERT_EQ(std::get<Elements>(value).size(), 1U);
  EXPECT_TRUE(CFEqual(elementOf(std::get<Elements>(value)[0]), element.get()));
}

TEST_F(AttributeValues, WhatTheSystemDoesNotKnowIsNoObject) {
  class Foreign final : public AccessibilityElement {};
  const AccessibilityElementRef foreign = std::make_shared<Foreign>();
  EXPECT_FALSE(attributeObject({}));
  EXPECT_FALSE(attributeObject("\xff"));
  EXPECT_FALSE(attributeObject(foreign));
  EXPECT_FALSE(attributeObject(AccessibilityElementRef()));
  EXPECT_FALSE(attributeObject(Elements{application(7), foreign}));
}

}  // namespace
}  // namespace tilwin::macos
