#include "app/settings/Published.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace tilwin {
namespace {

struct PublishedTest : testing::Test {
  /// A receiver that notes its name, the value to come and the value that still stands.
  Subscription note(const std::string& name) {
    return value.subscribe([this, name](int next) {
      told.push_back(name + ":" + std::to_string(value.get()) + "->" + std::to_string(next));
    });
  }

  Published<int> value{1};
  std::vector<std::string> told;
};

using Told = std::vector<std::string>;

TEST_F(PublishedTest, ReceiversAreToldBeforeTheChangeInTheirOrder) {
  const auto first = note("first");
  const auto second = note("second");
  value.set(2);
  EXPECT_EQ(told, (Told{"first:1->2", "second:1->2"}));
  EXPECT_EQ(value.get(), 2);
}

TEST_F(PublishedTest, EachAssignmentIsToldEvenOfTheSameValue) {
  const auto receiver = note("it");
  value.set(1);
  value.set(1);
  EXPECT_EQ(told, (Told{"it:1->1", "it:1->1"}));
}

TEST_F(PublishedTest, SubscribingTellsNothing) {
  const auto receiver = note("it");
  EXPECT_TRUE(told.empty());
}

TEST_F(PublishedTest, ASubscriptionEndsWithItsObject) {
  {
    const auto brief = note("brief");
    value.set(2);
  }
  value.set(3);
  EXPECT_EQ(told, Told{"brief:1->2"});
}

TEST_F(PublishedTest, ASubscriptionMovesWithItsObject) {
  Subscription kept;
  {
    auto receiver = note("it");
    kept = std::move(receiver);
  }
  value.set(2);
  EXPECT_EQ(told, Told{"it:1->2"});
  kept = Subscription();
  value.set(3);
  EXPECT_EQ(told.size(), 1);
}

TEST_F(PublishedTest, ASubscriptionMayOutliveTheValue) {
  std::optional<Published<int>> brief(std::in_place, 1);
  const auto receiver = brief->subscribe([](int) {});
  brief.reset();
}

TEST_F(PublishedTest, AReceiverMayUnsubscribeItself) {
  std::optional<Subscription> own;
  own = value.subscribe([&, text = std::string("still there after its end")](int) {
    own.reset();
    told.push_back(text);
  });
  const auto other = note("other");
  value.set(2);
  value.set(3);
  EXPECT_EQ(told, (Told{"still there after its end", "other:1->2", "other:2->3"}));
}

TEST_F(PublishedTest, AReceiverThatAnotherUnsubscribedIsToldNoMore) {
  std::optional<Subscription> victim;
  const auto killer = value.subscribe([&](int) { victim.reset(); });
  victim = note("victim");
  value.set(2);
  EXPECT_TRUE(told.empty());
}

TEST_F(PublishedTest, AReceiverAddedByAnotherIsToldFromTheNextChangeOn) {
  std::vector<Subscription> added;
  const auto adder = value.subscribe([&](int next) { added.push_back(note("at " + std::to_string(next))); });
  value.set(2);
  EXPECT_TRUE(told.empty());
  value.set(3);
  EXPECT_EQ(told, Told{"at 2:2->3"});
}

TEST_F(PublishedTest, OfAnAssignmentWithinAnotherTheOuterOneHasTheLastWord) {
  std::vector<int> inPlace;
  Published<int> nested(1, [&](int changed) { inPlace.push_back(changed); });
  const auto correcting = nested.subscribe([&](int next) {
    if (next == 2) nested.set(20);
  });
  std::vector<int> announced;
  const auto receiver = nested.subscribe([&](int next) { announced.push_back(next); });
  nested.set(2);
  EXPECT_EQ(announced, (std::vector{20, 2}));
  EXPECT_EQ(inPlace, (std::vector{20, 2}));
  EXPECT_EQ(nested.get(), 2);
}

TEST_F(PublishedTest, TheOwnerIsCalledOnceTheValueIsInPlace) {
  Published<int>* itself = nullptr;
  std::vector<std::string> order;
  Published<int> owned(1, [&](int changed) {
    order.push_back("owner " + std::to_string(changed) + std::to_string(itself->get()));
  });
  itself = &owned;
  const auto receiver = owned.subscribe([&](int) { order.emplace_back("receiver"); });
  owned.set(2);
  EXPECT_EQ(order, (Told{"receiver", "owner 22"}));
}

}  // namespace
}  // namespace tilwin
