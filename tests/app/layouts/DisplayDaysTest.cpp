#include "tests/app/layouts/DisplayDays.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <utility>

namespace tilwin {
namespace {

using namespace std::chrono_literals;

TEST_F(DisplayDays, WindowsReturnToTheirPlacesWhenADisplayComesBack) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(1h);
  connect(docked, onLaptop);
  passes(2.4s);
  EXPECT_EQ(frame(), onLaptop);
  passes(0.2s);
  EXPECT_EQ(frame(), onDesk);
}

TEST_F(DisplayDays, EachSetOfDisplaysKeepsItsOwnArrangement) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(1min);
  connect(docked, {0, 0, 300, 300});
  passes(1min);
  EXPECT_EQ(frame(), onDesk);
  connect(laptopAlone, {0, 0, 300, 300});
  passes(3s);
  EXPECT_EQ(frame(), onLaptop);
  EXPECT_EQ(automaticLayouts(), 2);
}

TEST_F(DisplayDays, TheArrangementIsStillKnownAfterANewStart) {
  start();
  passes(20s);
  delegate.reset();
  connect(laptopAlone, onLaptop);
  start();
  connect(docked, onLaptop);
  passes(3s);
  EXPECT_EQ(frame(), onDesk);
}

TEST_F(DisplayDays, TheFirstCaptureAfterAChangeIsTheFirstOneMoreThan12SecondsLater) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(19s);
  EXPECT_EQ(automaticLayouts(), 1);
  passes(1s);
  EXPECT_EQ(automaticLayouts(), 2);
}

TEST_F(DisplayDays, ACaptureExactly12SecondsAfterAChangeIsStillHeldOff) {
  start();
  passes(28s);
  connect(laptopAlone, onLaptop);
  passes(12s);
  EXPECT_EQ(automaticLayouts(), 1);
  passes(20s);
  EXPECT_EQ(automaticLayouts(), 2);
}

TEST_F(DisplayDays, TwoNoticesOfOneChangeRestoreOnce) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  connect(docked, onLaptop);
  passes(2s);
  desktop.screens.tell();
  passes(1s);
  EXPECT_EQ(frame(), onDesk);
  desktop.windows.moveByHand(editor, onLaptop);
  passes(2s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST_F(DisplayDays, ANoticeWithoutAChangeRestoresNothingAndHoldsNothingOff) {
  start();
  passes(20s);
  desktop.windows.moveByHand(editor, onLaptop);
  passes(19s);
  desktop.screens.tell();
  passes(1s);
  EXPECT_EQ(frame(), onLaptop);
  ASSERT_EQ(automaticLayouts(), 1);
  EXPECT_EQ(savedLayouts().layouts[0].slots[0].target,
            SlotTarget(NormalizedRect::of(onLaptop, {0, 0, 1440, 900})));
}

TEST_F(DisplayDays, ADisplayThatGoesAgainBeforeTheRestoreLeavesTheWindowsAlone) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(1min);
  connect(docked, onLaptop);
  passes(1s);
  connect(laptopAlone, {10, 10, 400, 400});
  passes(1.6s);
  EXPECT_EQ(frame(), (Rect{10, 10, 400, 400}));
  passes(1s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST_F(DisplayDays, ACaptureIsNamedAutomaticAndCarriesItsDisplaysAndItsTime) {
  start();
  desktop.time.setWallClock(std::chrono::sys_days(2026y / 3 / 1) + 9h + 30min);
  passes(20s);
  ASSERT_EQ(automaticLayouts(), 1);
  const Layout captured = savedLayouts().layouts[0];
  EXPECT_EQ(captured.name, "Automatic");
  EXPECT_TRUE(captured.isAutomatic);
  ASSERT_TRUE(captured.signature);
  EXPECT_EQ(captured.signature->key, "1440x900@0,0|2560x1440@1440,0");
  EXPECT_EQ(captured.updatedAt, std::chrono::sys_days(2026y / 3 / 1) + 9h + 30min + 20s);
}

TEST_F(DisplayDays, AnUnchangedArrangementIsNotWrittenAgain) {
  start();
  passes(20s);
  ASSERT_EQ(automaticLayouts(), 1);
  scribble();
  passes(10min);
  EXPECT_TRUE(isScribbled());
  desktop.windows.moveByHand(editor, onLaptop);
  passes(20s);
  EXPECT_FALSE(isScribbled());
  EXPECT_TRUE(std::filesystem::exists(layoutsFile().string() + ".unreadable"));
}

TEST_F(DisplayDays, WhatAPersonEditedMeanwhileIsKeptBeside) {
  start();
  passes(20s);
  LayoutStore edited = savedLayouts();
  edited.layouts[0].name = "By hand";
  edited.write(layoutsFile());
  desktop.windows.moveByHand(editor, onLaptop);
  passes(20s);
  EXPECT_EQ(LayoutStore::load(layoutsFile().string() + ".edited"), edited);
}

TEST_F(DisplayDays, WhatIsKeptBesideIsLoggedOnceForEachKind) {
  start();
  passes(20s);
  LayoutStore edited = savedLayouts();
  for (const auto& [name, place] : {std::pair("First", onLaptop), std::pair("Second", onDesk)}) {
    edited.layouts[0].name = name;
    edited.write(layoutsFile());
    desktop.windows.moveByHand(editor, place);
    passes(20s);
  }
  scribble();
  desktop.windows.moveByHand(editor, onLaptop);
  passes(20s);
  const std::string start = "Tilwin: " + layoutsFile().string() + " was changed by another hand; ";
  const auto times = [&](const std::string& rest) {
    return std::ranges::count(desktop.log.lines(), start + rest);
  };
  EXPECT_EQ(times("that is kept as layouts.json.edited"), 1);
  EXPECT_EQ(times("that is kept as layouts.json.unreadable"), 1);
}

}  // namespace
}  // namespace tilwin
