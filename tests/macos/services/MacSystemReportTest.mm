#include "platform/macos/system/MacSystemReport.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/macos/support/Held.h"
#include "platform/macos/system/MacBundle.h"
#include "tests/macos/services/TestBundle.h"

namespace tilwin::macos {
namespace {

std::string factNamed(const SystemFacts& facts, const std::string& name) {
  const auto fact = std::ranges::find(facts.versions, name, &NamedFact::name);
  return fact == facts.versions.end() ? "" : fact->value;
}

TEST(MacSystemReport, TellsTheVersionsOfTheProgramAndOfWhatItRunsOn) {
  const AutoreleasePool pool;
  const TestBundle program("<key>CFBundleShortVersionString</key><string>1.2.3</string>");
  MacBundle bundle(program.bundle());
  MacSystemReport report(bundle);
  const auto facts = report.facts();
  EXPECT_EQ(factNamed(facts, "Tilwin"), "1.2.3");
  EXPECT_FALSE(factNamed(facts, "System").empty());
  EXPECT_EQ(std::ranges::count(factNamed(facts, "Kernel"), ' '), 2) << factNamed(facts, "Kernel");
}

TEST(MacSystemReport, KnowsNoFileOfSettingsAndNoSocket) {
  const AutoreleasePool pool;
  MacBundle bundle([NSBundle mainBundle]);
  MacSystemReport report(bundle);
  const auto facts = report.facts();
  EXPECT_EQ(facts.commands, SystemFacts::Commands::elsewhere);
  EXPECT_FALSE(facts.settingsFile || facts.socket || facts.isWayland);
  EXPECT_TRUE(facts.home && facts.home->is_absolute());
}

}  // namespace
}  // namespace tilwin::macos
