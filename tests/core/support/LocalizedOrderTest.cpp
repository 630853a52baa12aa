#include "core/support/LocalizedOrder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <unicode/locid.h>

#include <algorithm>

#include "tests/core/EnvironmentVariable.h"
#include "tests/core/support/Texts.h"

namespace tilwin {
namespace {

using Names = std::vector<std::string>;

Names sorted(const LocalizedOrder& order, Names names) {
  std::stable_sort(names.begin(), names.end(),
                   [&](const auto& first, const auto& second) { return order.precedes(first, second); });
  return names;
}

TEST(LocalizedOrder, IgnoresCaseInEveryLocale) {
  for (const char* locale : {"", "C", "POSIX", "C.UTF-8", "en_US_POSIX", "en_US.UTF-8", "de_DE", "root"}) {
    EXPECT_EQ(sorted(LocalizedOrder(locale), {"gamma", "Beta", "alpha"}), (Names{"alpha", "Beta", "gamma"}))
        << locale;
  }
}

/// An environment that names no locale but for what ICU has made of it, for as long as this lives.
class Environment {
public:
  explicit Environment(const char* locale) { become(icu::Locale(locale)); }
  ~Environment() { become(before_); }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

private:
  static void become(const icu::Locale& locale) {
    UErrorCode error = U_ZERO_ERROR;
    icu::Locale::setDefault(locale, error);
    EXPECT_TRUE(U_SUCCESS(error));
  }

  icu::Locale before_ = icu::Locale::getDefault();
  EnvironmentVariable all_{"LC_ALL", nullptr};
  EnvironmentVariable collation_{"LC_COLLATE", nullptr};
  EnvironmentVariable language_{"LANG", nullptr};
};

TEST(LocalizedOrder, ThatOfTheEnvironmentIgnoresCaseWhateverItNames) {
  for (const char* locale : {"en_US_POSIX", "en_US", "tr_TR", "ja_JP"}) {
    const Environment environment(locale);
    EXPECT_EQ(sorted(LocalizedOrder(), {"gamma", "Beta", "alpha"}), (Names{"alpha", "Beta", "gamma"}))
        << locale;
  }
}

TEST(LocalizedOrder, WithoutALocaleIsThatOfTheEnvironment) {
  const Environment swedish("sv_SE");
  EXPECT_EQ(sorted(LocalizedOrder(), {"Äpple", "Zoo", "Ast"}), (Names{"Ast", "Zoo", "Äpple"}));
}

TEST(LocalizedOrder, WithoutALocaleIsThatOfTheEnvironmentForSorting) {
  const Names swedish{"Ast", "Zoo", "Äpple"};
  const Names german{"Äpple", "Ast", "Zoo"};
  const Environment messages("de_DE");
  EXPECT_EQ(sorted(LocalizedOrder(), swedish), german);
  const EnvironmentVariable language("LANG", "sv_SE.UTF-8");
  EXPECT_EQ(sorted(LocalizedOrder(), german), swedish);
  const EnvironmentVariable collation("LC_COLLATE", "de_AT.UTF-8");
  EXPECT_EQ(sorted(LocalizedOrder(), swedish), german);
  const EnvironmentVariable all("LC_ALL", "fi_FI.UTF-8");
  EXPECT_EQ(sorted(LocalizedOrder(), german), swedish);
  const EnvironmentVariable posix("LC_ALL", "C");
  EXPECT_EQ(sorted(LocalizedOrder(), {"b", "C", "a"}), (Names{"a", "b", "C"}));
}

TEST(LocalizedOrder, CaseAloneDecidesNothing) {
  const LocalizedOrder order("en");
  EXPECT_FALSE(order.precedes("mail", "Mail"));
  EXPECT_FALSE(order.precedes("Mail", "mail"));
  EXPECT_FALSE(order.precedes("Mail", "Mail"));
  EXPECT_FALSE(order.precedes("", ""));
  EXPECT_TRUE(order.precedes("", "a"));
}

TEST(LocalizedOrder, AccentsDecideLast) {
  const LocalizedOrder order("en");
  EXPECT_TRUE(order.precedes("resume", "r\u00E9sum\u00E9"));
  EXPECT_TRUE(order.precedes("r\u00E9sum\u00E9", "resumf"));
  EXPECT_FALSE(order.precedes("\u00E9", "e\u0301")) << "composed and decomposed are the same";
  EXPECT_FALSE(order.precedes("e\u0301", "\u00E9"));
}

TEST(LocalizedOrder, IsThatOfTheLanguage) {
  EXPECT_EQ(sorted(LocalizedOrder("de_DE"), {"Zug", "Äpfel", "Ast"}), (Names{"Äpfel", "Ast", "Zug"}));
  EXPECT_EQ(sorted(LocalizedOrder("sv_SE.UTF-8"), {"Äpple", "Zoo", "Ast"}), (Names{"Ast", "Zoo", "Äpple"}));
}

TEST(LocalizedOrder, UnknownLocalesGiveTheOrderOfNone) {
  for (const std::string& locale :
       {std::string("xx_YY"), std::string("!!"), std::string(300, 'q'), std::string("\xFF\xFE")}) {
    EXPECT_EQ(sorted(LocalizedOrder(locale), {"Zug", "Äpfel", "ast"}), (Names{"Äpfel", "ast", "Zug"}));
  }
}

TEST(LocalizedOrder, SurvivesIllFormedText) {
  const LocalizedOrder order("en");
  for (const std::string& text : illFormedTexts()) {
    EXPECT_FALSE(order.precedes(text, text));
    EXPECT_TRUE(order.precedes("a" + text, "b"));
  }
}

RC_GTEST_PROP(LocalizedOrderProperties, IsAStrictWeakOrder, ()) {
  static const LocalizedOrder order("de");
  const std::string a = arbitrary::bytes();
  const std::string b = arbitrary::bytes();
  const std::string c = arbitrary::bytes();
  RC_ASSERT(!(order.precedes(a, b) && order.precedes(b, a)));
  RC_ASSERT(!(order.precedes(a, b) && order.precedes(b, c)) || order.precedes(a, c));
  RC_ASSERT(!(!order.precedes(a, b) && !order.precedes(b, a) && order.precedes(b, c)) ||
            order.precedes(a, c));
}

}  // namespace
}  // namespace tilwin
