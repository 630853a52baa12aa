#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/windows/AXWindowProvider.h"
#include "platform/simulated/SimulatedAccessibleDesktop.h"
#include "tests/app/AccessibilityUnderTest.h"

namespace tilwin {

/// A provider on a simulated desktop, with one program in front that has no window yet.
struct AXWindowProviderTest : testing::Test {
  using Node = SimulatedAccessibleDesktop::Node;

  AXWindowProviderTest() { desktop.activate(editor); }

  std::int32_t launch(const std::string& name) {
    return desktop.launch({.bundleIdentifier = "org.example." + name, .localizedName = name});
  }
  [[nodiscard]] Node applicationNode(std::int32_t processID) { return tree.applicationNode(processID); }
  /// Opens a window of the program in front and asks for its id.
  std::int64_t openFocused(const AccessibleWindow& window = {}) {
    opened = desktop.open(editor, window);
    const auto info = provider.focusedWindow();
    EXPECT_TRUE(info.has_value());
    return info.value_or(WindowInfo{}).id;
  }
  std::vector<std::string> listedTitles() {
    std::vector<std::string> titles;
    for (const WindowInfo& window : provider.allWindows()) titles.push_back(window.title);
    return titles;
  }

  SimulatedAccessibleDesktop desktop;
  SimulatedAccessibility& tree = desktop.tree;
  std::int32_t editor = launch("Editor");
  Node opened = 0;
  std::shared_ptr<Accessibility> accessibility = accessibilityOver(desktop.tree);
  AXWindowProvider provider{*accessibility, desktop.workspace, desktop.screens};
};

}  // namespace tilwin
