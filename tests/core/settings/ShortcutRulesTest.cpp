#include "core/settings/ShortcutRules.h"

#include <gtest/gtest.h>

#include "core/settings/TilwinSettings.h"

namespace tilwin {
namespace {

using Problem = ShortcutRules::Problem;
using Reserved = ShortcutRules::ReservedBySystem;
using UsedBy = ShortcutRules::UsedBy;
using NeedsModifier = ShortcutRules::NeedsModifier;
using NeedsControlOrOption = ShortcutRules::NeedsControlOrOption;

constexpr std::uint32_t command = 256;
constexpr std::uint32_t shift = 512;
constexpr std::uint32_t option = 2048;
constexpr std::uint32_t control = 4096;
constexpr std::uint32_t keyA = 0;
constexpr std::uint32_t keyQ = 12;
constexpr std::uint32_t keyK = 40;
constexpr std::uint32_t space = 49;
constexpr std::uint32_t f5 = 96;
constexpr HotKeySpec leftHalfKeys{123, control | option};

/// What is said of a shortcut for an action that has none, in fresh settings.
std::optional<Problem> problem(std::uint32_t keyCode, std::uint32_t modifiers) {
  return ShortcutRules::problem({keyCode, modifiers}, SnapAction::centerLarge, TilwinSettings());
}

std::optional<Problem> reserved(std::string label) { return Reserved{std::move(label)}; }
std::optional<Problem> usedBy(std::string name) { return UsedBy{std::move(name)}; }
const std::optional<Problem> needsModifier = NeedsModifier{};
const std::optional<Problem> needsControlOrOption = NeedsControlOrOption{};

TEST(ShortcutRules, AKeyThatTypesSomethingNeedsAModifier) {
  EXPECT_EQ(problem(keyA, 0), needsModifier);
  EXPECT_EQ(problem(keyA, shift), needsModifier) << "Shift alone only types another letter";
  EXPECT_EQ(problem(10, 0x10000), needsModifier) << "other bits are no modifiers";
}

TEST(ShortcutRules, FunctionKeysNeedNone) {
  for (const std::uint32_t key : {122U, 120U, 99U, 118U, 96U, 97U, 98U, 100U, 101U, 109U, 103U, 111U}) {
    EXPECT_EQ(problem(key, 0), std::nullopt) << key;
    EXPECT_EQ(problem(key, shift), std::nullopt) << key;
    EXPECT_EQ(problem(key, command), std::nullopt) << key;
  }
  EXPECT_EQ(problem(105, 0), needsModifier) << "F13 is not among them";
}

TEST(ShortcutRules, CommandAloneOrWithShiftIsNotEnough) {
  EXPECT_EQ(problem(keyK, command), needsControlOrOption);
  EXPECT_EQ(problem(keyK, command | shift), needsControlOrOption);
  EXPECT_EQ(problem(keyK, command | control), std::nullopt);
  EXPECT_EQ(problem(keyK, command | option), std::nullopt);
  EXPECT_EQ(problem(keyK, control), std::nullopt);
  EXPECT_EQ(problem(keyK, option), std::nullopt);
}

TEST(ShortcutRules, WhatTheSystemUsesIsReservedWithExactlyItsModifiers) {
  EXPECT_EQ(problem(keyQ, command), reserved("Quit (Command-Q)"));
  EXPECT_EQ(problem(keyQ, control | command), reserved("Lock screen (Control-Command-Q)"));
  EXPECT_EQ(problem(keyQ, control | option | command), std::nullopt);
  EXPECT_EQ(problem(keyQ, command | shift), needsControlOrOption);
}

TEST(ShortcutRules, ReservedComesBeforeTheCommandRule) {
  EXPECT_EQ(problem(space, command), reserved("Spotlight (Command-Space)"));
}

TEST(ShortcutRules, ControlSpaceIsReservedThoughControlWouldBeEnough) {
  EXPECT_EQ(problem(space, control), reserved("Input source (Control-Space)"));
}

TEST(ShortcutRules, TheReservedShortcutsAreTheseEighteen) {
  struct Row {
    std::uint32_t keyCode;
    std::uint32_t modifiers;
    const char* label;
  };
  const std::vector<Row> expected{{49, 256, "Spotlight (Command-Space)"},
                                  {49, 4096, "Input source (Control-Space)"},
                                  {49, 2304, "Finder search (Command-Option-Space)"},
                                  {48, 256, "App switcher (Command-Tab)"},
                                  {50, 256, "Switch windows (Command-`)"},
                                  {12, 256, "Quit (Command-Q)"},
                                  {13, 256, "Close window (Command-W)"},
                                  {4, 256, "Hide (Command-H)"},
                                  {46, 256, "Minimize (Command-M)"},
                                  {53, 2304, "Force Quit (Command-Option-Escape)"},
                                  {12, 4352, "Lock screen (Control-Command-Q)"},
                                  {20, 768, "Screenshot (Command-Shift-3)"},
                                  {21, 768, "Screenshot (Command-Shift-4)"},
                                  {23, 768, "Screenshot (Command-Shift-5)"},
                                  {126, 4096, "Mission Control (Control-Up)"},
                                  {125, 4096, "App Exposé (Control-Down)"},
                                  {123, 4096, "Move a Space left (Control-Left)"},
                                  {124, 4096, "Move a Space right (Control-Right)"}};
  const auto rows = ShortcutRules::reserved();
  ASSERT_EQ(rows.size(), 18);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    EXPECT_EQ(rows[row].spec, (HotKeySpec{expected[row].keyCode, expected[row].modifiers})) << row;
    EXPECT_EQ(rows[row].label, expected[row].label);
    EXPECT_EQ(problem(expected[row].keyCode, expected[row].modifiers), reserved(expected[row].label));
  }
}

TEST(ShortcutRules, AnotherActionsShortcutIsInUseUntilItIsCleared) {
  TilwinSettings settings;
  EXPECT_EQ(ShortcutRules::problem(leftHalfKeys, SnapAction::rightHalf, settings), usedBy("Left half"));
  settings.clearShortcut(SnapAction::leftHalf);
  EXPECT_EQ(ShortcutRules::problem(leftHalfKeys, SnapAction::rightHalf, settings), std::nullopt);
}

TEST(ShortcutRules, AnOverrideIsInUseAndFreesTheDefault) {
  TilwinSettings settings;
  settings.shortcuts["leftHalf"] = {f5, 0};
  EXPECT_EQ(ShortcutRules::problem({f5, 0}, SnapAction::rightHalf, settings), usedBy("Left half"));
  EXPECT_EQ(ShortcutRules::problem(leftHalfKeys, SnapAction::rightHalf, settings), std::nullopt);
}

TEST(ShortcutRules, AnAreasShortcutIsInUseByItsName) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Notes"), CustomArea::starter("Chat")};
  settings.customAreas[1].shortcut = HotKeySpec{f5, 0};
  EXPECT_EQ(ShortcutRules::problem({f5, 0}, SnapAction::leftHalf, settings), usedBy("Chat"));
  EXPECT_EQ(ShortcutRules::problem({f5, 0}, settings.customAreas[0].id, settings), usedBy("Chat"));
}

TEST(ShortcutRules, AnActionComesBeforeAnAreaWithTheSameShortcut) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Notes")};
  settings.customAreas[0].shortcut = leftHalfKeys;
  EXPECT_EQ(ShortcutRules::problem(leftHalfKeys, SnapAction::rightHalf, settings), usedBy("Left half"));
}

TEST(ShortcutRules, AnOwnersOwnShortcutIsNotInItsWay) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Notes")};
  settings.customAreas[0].shortcut = HotKeySpec{f5, 0};
  EXPECT_EQ(ShortcutRules::problem({f5, 0}, settings.customAreas[0].id, settings), std::nullopt);
  EXPECT_EQ(ShortcutRules::problem(leftHalfKeys, SnapAction::leftHalf, settings), std::nullopt);
  EXPECT_EQ(ShortcutRules::problem(leftHalfKeys, ShortcutOwner(SnapAction::leftHalf), settings),
            std::nullopt);
}

TEST(ShortcutRules, OfOwnersWithOneShortcutAllButTheFirstAreToldWhoseItIs) {
  TilwinSettings settings;
  settings.shortcuts["rightHalf"] = leftHalfKeys;
  settings.customAreas = {CustomArea::starter("Notes"), CustomArea::starter("Chat")};
  settings.customAreas[0].shortcut = HotKeySpec{f5, 0};
  settings.customAreas[1].shortcut = HotKeySpec{f5, 0};
  EXPECT_EQ(ShortcutRules::usedEarlier(SnapAction::leftHalf, settings), std::nullopt);
  EXPECT_EQ(ShortcutRules::usedEarlier(SnapAction::rightHalf, settings), UsedBy{"Left half"});
  EXPECT_EQ(ShortcutRules::usedEarlier(settings.customAreas[0].id, settings), std::nullopt);
  EXPECT_EQ(ShortcutRules::usedEarlier(settings.customAreas[1].id, settings), UsedBy{"Notes"});
  EXPECT_EQ(ShortcutRules::usedEarlier(SnapAction::topLeftSixth, settings), std::nullopt);
}

TEST(ShortcutRules, EveryDefaultShortcutIsAllowed) {
  for (const auto& row : TilwinSettings::defaults()) {
    EXPECT_EQ(ShortcutRules::problem(row.spec, row.action, TilwinSettings()), std::nullopt) << row.action;
  }
}

TEST(ShortcutRules, EveryProblemHasItsSentence) {
  EXPECT_EQ(ShortcutRules::message(Reserved{"Quit (Command-Q)"}), "macOS uses this for Quit (Command-Q).");
  EXPECT_EQ(ShortcutRules::message(UsedBy{"Left half"}),
            "Already set for \xe2\x80\x9cLeft half\xe2\x80\x9d.");
  EXPECT_EQ(ShortcutRules::message(NeedsModifier{}), "Hold Control, Option or Command with the key.");
  EXPECT_EQ(ShortcutRules::message(NeedsControlOrOption{}),
            "Add Control or Option, so this does not replace a shortcut such as Command-C in every app.");
}

}  // namespace
}  // namespace tilwin
