#include "tests/macos/settings/MacSettingsDriver.h"

#include <GNUstepGUI/GSDisplayServer.h>

#include <cmath>
#include <stdexcept>

#include "platform/macos/settings/FormWindow.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/PictureView.h"
#include "platform/macos/settings/Sidebar.h"
#include "tests/macos/desktop/EventLoop.h"

namespace tilwin::macos {
namespace {

using desktop::Milliseconds;

NSPoint inWindow(NSView* view, NSPoint at) { return [view convertPoint:at toView:nil]; }

NSPoint pointOn(const std::string& picture, Point at) {
  auto* const view = static_cast<TWPictureView*>(MacSettingsDriver::control(picture));
  const NSRect screen = [view screen];
  return inWindow(view, NSMakePoint(screen.origin.x + at.x * screen.size.width,
                                    screen.origin.y + at.y * screen.size.height));
}

/// Asks the window manager as a pager does. The window's own program takes the focus, so this does not wait.
void turnTo(desktop::WindowId window) {
  constexpr std::uint32_t fromPager = 2;
  macDesktop().desktop().connection().sendToRoot(window, "_NET_ACTIVE_WINDOW", {fromPager, 0, 0, 0, 0});
}

}  // namespace

NSWindow* MacSettingsDriver::frame() {
  for (NSWindow* window in [NSApp windows]) {
    if ([window isKindOfClass:[TWFormWindow class]] && [window isVisible]) return window;
  }
  return nil;
}

std::vector<NSView*> visibleViewsIn(NSView* view) {
  std::vector<NSView*> views;
  if (view == nil || [view isHidden]) return views;
  views.push_back(view);
  for (NSView* child in [view subviews]) {
    const auto inside = visibleViewsIn(child);
    views.insert(views.end(), inside.begin(), inside.end());
  }
  return views;
}

bool isControl(NSView* view) { return [view respondsToSelector:@selector(keyView)]; }

std::vector<NSView*> visibleViews() { return visibleViewsIn([MacSettingsDriver::frame() contentView]); }

NSView* MacSettingsDriver::control(const std::string& id) {
  for (NSView* view : visibleViews()) {
    if (isControl(view) && [static_cast<ControlView*>(view) formId] == id) {
      return view;
    }
    if ([view isKindOfClass:[TWPictureView class]] && [static_cast<TWPictureView*>(view) picture].id == id) {
      return view;
    }
  }
  throw std::logic_error("the window does not show " + id);
}

MacSettingsDriver::~MacSettingsDriver() {
  window_.close();
  if (!other_.hasFocus()) letFocusGo();
}

void MacSettingsDriver::letFocusGo() {
  settle([this] { return macDesktop().desktop().activeWindow() == other_.id(); });
  if ([NSApp isActive]) [NSApp deactivate];
}

bool MacSettingsDriver::settle(const std::function<bool()>& condition) {
  return runEventLoopUntil(condition, desktop::answerTimeout);
}

desktop::WindowId MacSettingsDriver::nativeWindow() {
  NSWindow* const window = frame();
  const auto number = static_cast<int>([window windowNumber]);
  return static_cast<desktop::WindowId>(
      reinterpret_cast<std::uintptr_t>([GSServerForWindow(window) windowDevice:number]));
}

desktop::PixelPoint MacSettingsDriver::pixelAt(NSView* view, NSPoint at) {
  const NSPoint screen = [[view window] convertBaseToScreen:inWindow(view, at)];
  const CGFloat height = [[NSScreen mainScreen] frame].size.height;
  return {static_cast<int>(std::floor(screen.x)), static_cast<int>(std::floor(height - screen.y))};
}

void MacSettingsDriver::reveal(NSView* view) {
  NSScrollView* const scroll = [view enclosingScrollView];
  if (scroll == nil) return;
  const auto isSeen = [&] {
    return NSEqualRects(NSIntersectionRect([view visibleRect], [view bounds]), [view bounds]);
  };
  for (int turn = 0; turn < 200 && !isSeen(); ++turn) {
    NSClipView* const clip = [scroll contentView];
    const NSRect area = [view convertRect:[view bounds] toView:clip];
    const bool isAbove = NSMinY(area) < NSMinY([clip bounds]);
    const CGFloat before = NSMinY([clip bounds]);
    const NSPoint middle = NSMakePoint(NSMidX([clip bounds]), NSMidY([clip bounds]));
    macDesktop().input().click(pixelAt(clip, middle), isAbove ? 4 : 5);
    runEventLoopUntil([&] { return NSMinY([clip bounds]) != before; }, Milliseconds{200});
  }
  if (!isSeen()) throw std::logic_error("a view cannot be brought into sight");
}

void MacSettingsDriver::clickMiddle(NSView* view) {
  reveal(view);
  const NSRect bounds = [view bounds];
  Hands(frame()).click(inWindow(view, NSMakePoint(NSMidX(bounds), NSMidY(bounds))));
}

void MacSettingsDriver::press(const std::string& button) { clickMiddle(control(button)); }

void MacSettingsDriver::flip(const std::string& toggle) {
  clickMiddle([static_cast<ControlView*>(control(toggle)) keyView]);
}

void MacSettingsDriver::moveSlider(const std::string& slider, double to) {
  auto* const view = static_cast<NSSlider*>(control(slider));
  reveal(view);
  const CGFloat end = [[view cell] knobRectFlipped:[view isFlipped]].size.width / 2;
  const double from = sliderPosition(slider);
  // Nobody stops at the last pixel.
  const CGFloat beyond = to <= 0 ? -end : to >= 1 ? end : 0;
  std::vector<Hands::Spot> way;
  for (int step = 0; step <= 4; ++step) {
    way.emplace_back([=] {
      const NSRect bounds = [view bounds];
      const double share = from + (to - from) * step / 4;
      const CGFloat x = end + (bounds.size.width - 2 * end) * share + beyond * step / 4;
      return inWindow(view, NSMakePoint(x, NSMidY(bounds)));
    });
  }
  Hands(frame()).drag(way);
}

void MacSettingsDriver::choose(const std::string& section) {
  for (NSView* view : visibleViews()) {
    if ([view isKindOfClass:[TWSectionButton class]] &&
        [static_cast<TWSectionButton*>(view) formId] == section) {
      return clickMiddle(view);
    }
  }
  throw std::logic_error("there is no section " + section);
}

void MacSettingsDriver::grab(const std::string& picture, Point at) {
  reveal(control(picture));
  hand_ = pointOn(picture, at);
  Hands(frame()).buttonDown(hand_);
}

void MacSettingsDriver::dragTo(const std::string& picture, Point to) {
  const NSPoint from = hand_;
  hand_ = pointOn(picture, to);
  Hands(frame()).moveHolding(NSMakePoint((from.x + hand_.x) / 2, (from.y + hand_.y) / 2));
  Hands(frame()).moveHolding(hand_);
}

void MacSettingsDriver::drop(const std::string&) { Hands(frame()).buttonUp(hand_); }

void MacSettingsDriver::closeByHand() {
  const auto native = nativeWindow();
  NSWindow* const window = frame();
  macDesktop().desktop().close(native);
  settle([&] { return frame() != window; });
  if (frame() == nil) letFocusGo();
}

void MacSettingsDriver::focus(const std::string& id) {
  for (int turn = 0; turn < 200; ++turn) {
    if (focused() == id) return;
    pressKeys({contract::keys::tab, 0});
  }
  throw std::logic_error("Tab does not lead to " + id);
}

void MacSettingsDriver::type(const std::string& text) {
  for (const char character : text) Hands(frame()).type(character);
}

void MacSettingsDriver::pressKeys(const HotKeySpec& keys) { Hands(frame()).pressKeys(keys, capsLock_); }

void MacSettingsDriver::holdUntilItRepeats(const HotKeySpec& keys) {
  Hands(frame()).pressKeys(keys, capsLock_, 5);
}

void MacSettingsDriver::pressModifiersAlone() { Hands(frame()).pressModifiersAlone(); }

void MacSettingsDriver::leaveProgram() {
  macDesktop().desktop().activate(other_.id());
  settle([this] { return other_.hasFocus() && ![frame() isKeyWindow]; });
}

void MacSettingsDriver::returnToProgram() {
  settle([this] {
    turnToWindow();
    return isInFront();
  });
}

bool MacSettingsDriver::isInFront() {
  if (![frame() isKeyWindow]) return false;
  if (macDesktop().desktop().activeWindow() == nativeWindow()) return true;
  // GNUstep asks for the focus with the time of its last event, which may be too old for the window manager.
  turnToWindow();
  return false;
}

void MacSettingsDriver::turnToWindow() {
  const auto native = nativeWindow();
  const auto now = desktop::Clock::now();
  // More than once, as GNUstep ignores the first time for a new window.
  const bool isTurning = turnedTo_ == native && now - turnedAt_ < Milliseconds{250};
  if (isTurning || !macDesktop().desktop().viewable(native)) return;
  turnedTo_ = native;
  turnedAt_ = now;
  turnTo(native);
}

}  // namespace tilwin::macos
