#include "platform/x11/windows/MeasuredDecoration.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "tests/contract/X11Windows.h"

namespace tilwin::x11 {

namespace {

/// Windows whose manager does not tell how it decorates them.
class X11MeasuredDecoration : public X11Windows {
protected:
  static Margins marginsOf(const desktop::Extents& extents) {
    return {static_cast<double>(extents.left), static_cast<double>(extents.right),
            static_cast<double>(extents.top), static_cast<double>(extents.bottom)};
  }
};

}  // namespace

TEST_F(X11MeasuredDecoration, IsWhatAManagerThatTellsItTells) {
  const auto decorated = open({.title = "decorated"});
  const auto bare = open({.title = "bare", .undecorated = true});
  const auto told = marginsOf(session.desktop().frameExtents(decorated.id()));
  ASSERT_GT(told.top, 0);
  EXPECT_EQ(measuredDecoration(*x, decorated.id()), told);
  EXPECT_EQ(measuredDecoration(*x, bare.id()), marginsOf(session.desktop().frameExtents(bare.id())));
}

TEST_F(X11MeasuredDecoration, TakesInABorderThatTheServerDraws) {
  const auto window = open({.overrideRedirect = true});
  auto& manager = session.desktop().connection();
  const std::uint32_t border = 3;
  xcb_configure_window(manager.get(), window.id(), XCB_CONFIG_WINDOW_BORDER_WIDTH, &border);
  manager.sync();
  EXPECT_EQ(measuredDecoration(*x, window.id()), (Margins{3, 3, 3, 3}));
}

TEST_F(X11MeasuredDecoration, IsNoneAroundAWindowThatIsGone) {
  auto window = open({});
  window.destroy();
  EXPECT_EQ(measuredDecoration(*x, window.id()), Margins());
}

TEST_F(X11MeasuredDecoration, BelongsToTheFrameThatIsReadAndAskedFor) {
  const auto window = open({.title = "text"});
  const auto before = session.desktop().frame(window.id());
  removeProperty(window, "_NET_FRAME_EXTENTS");
  const auto read = listed("text");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->frame, before);
  EXPECT_EQ(provider->frame(read->id), before);
  const Rect target{300, 200, 500, 400};
  ASSERT_TRUE(provider->setFrame(read->id, target));
  EXPECT_TRUE(session.desktop().waitUntil([&] {
    x->dispatch();
    return provider->frame(read->id) == target && session.desktop().topLevelArea(window.id()) == target;
  }));
}

TEST_F(X11MeasuredDecoration, IsBelievedRatherThanWhatAnEarlierManagerTold) {
  const auto window = open({.title = "text"});
  const auto before = session.desktop().frame(window.id());
  auto& manager = session.desktop().connection();
  constexpr std::array<std::uint32_t, 4> none{};
  xcb_change_property(manager.get(), XCB_PROP_MODE_REPLACE, window.id(), manager.atom("_NET_FRAME_EXTENTS"),
                      XCB_ATOM_CARDINAL, 32, 4, none.data());
  xcb_delete_property(manager.get(), manager.root(), manager.atom("_NET_SUPPORTED"));
  manager.sync();
  ASSERT_NE(session.desktop().clientArea(window.id()), before);
  EXPECT_TRUE(session.desktop().waitUntil([&] {
    const auto read = listed("text");
    return read && read->frame == before;
  }));
}

}  // namespace tilwin::x11
