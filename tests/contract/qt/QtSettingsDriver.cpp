#include "tests/contract/qt/QtSettingsDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QListWidget>
#include <QScrollArea>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

#include "platform/qt/settings/MiniatureView.h"
#include "platform/x11/input/KeyPositions.h"
#include "tests/contract/MainLoop.h"

namespace tilwin::contract {
namespace {

using desktop::Milliseconds;
using desktop::PixelPoint;

/// The keycodes of this desktop's keyboard, by ANSI key code.
const std::map<std::uint32_t, std::uint32_t>& scanCodes() {
  static const auto codes = [] {
    std::map<std::uint32_t, std::uint32_t> result;
    for (const auto& position : x11::keyPositions) {
      try {
        result[position.keyCode] = qtDesktop().input().keyboard().at(std::string(position.name));
      } catch (const std::exception&) {
        continue;  // not every keyboard has every key
      }
    }
    return result;
  }();
  return codes;
}

std::string modifierNames(std::uint32_t bits) {
  std::string names;
  for (const auto& [bit, name] : {std::pair{HotKeySpec::control, "Control"},
                                  {HotKeySpec::option, "Alt"},
                                  {HotKeySpec::shift, "Shift"},
                                  {HotKeySpec::cmd, "Super"}}) {
    if ((bits & bit) != 0) names += (names.empty() ? "" : "+") + std::string(name);
  }
  return names;
}

constexpr Milliseconds arrival{25};

}  // namespace

std::optional<std::uint32_t> ansiKeyCode(std::uint32_t nativeScanCode) {
  for (const auto& [keyCode, scanCode] : scanCodes()) {
    if (scanCode == nativeScanCode) return keyCode;
  }
  return std::nullopt;
}

bool QtSettingsDriver::settle(const std::function<bool()>& condition) {
  return runMainLoopUntil(condition, desktop::answerTimeout);
}

void QtSettingsDriver::letArrive() { runMainLoop(arrival); }

QWidget* QtSettingsDriver::frame() {
  for (auto* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == QLatin1String("settings") && widget->isVisible()) return widget;
  }
  return nullptr;
}

QWidget& QtSettingsDriver::control(const std::string& id) {
  auto* found = frame() == nullptr ? nullptr : frame()->findChild<QWidget*>(QString::fromStdString(id));
  if (found == nullptr) throw std::logic_error("the window does not show " + id);
  return *found;
}

PixelPoint QtSettingsDriver::pixelAt(const QWidget& widget, const QPointF& at) {
  const QPointF global = widget.mapToGlobal(at) * widget.devicePixelRatioF();
  return {static_cast<int>(std::floor(global.x())), static_cast<int>(std::floor(global.y()))};
}

void QtSettingsDriver::reveal(QWidget& widget) {
  auto* scroll = frame()->findChild<QScrollArea*>();
  const auto* content = scroll == nullptr ? nullptr : scroll->widget();
  if (content == nullptr || !content->isAncestorOf(&widget)) return;
  const auto isSeen = [&] { return widget.visibleRegion().boundingRect() == widget.rect(); };
  runMainLoopUntil([&] { return widget.height() > 0 && widget.width() > 0; }, desktop::answerTimeout);
  for (int turn = 0; turn < 200 && !isSeen(); ++turn) {
    const int top = widget.mapTo(scroll->viewport(), QPoint(0, 0)).y();
    qtDesktop().input().click(pixelAt(*scroll->viewport(), {4, scroll->viewport()->height() / 2.0}),
                              top < 0 ? 4 : 5);
    runMainLoop(Milliseconds{2});
  }
  if (!isSeen()) throw std::logic_error(widget.objectName().toStdString() + " cannot be brought into view");
}

void QtSettingsDriver::click(QWidget& widget) {
  reveal(widget);
  // A wide control is pressed near its end, where a switch is.
  const double inset = std::min(widget.width() / 2.0, 14.0);
  qtDesktop().input().click(pixelAt(widget, {widget.width() - inset, widget.height() / 2.0}));
  letArrive();
}

void QtSettingsDriver::moveSlider(const std::string& slider, double to) {
  QWidget& widget = control(slider);
  reveal(widget);
  constexpr double end = 11;
  const auto at = [&](double share) {
    const double x = end + (widget.width() - 2 * end) * share;
    // Nobody stops at the last pixel.
    const double beyond = share <= 0 ? -end : share >= 1 ? end : 0;
    return pixelAt(widget, {x + beyond, widget.height() / 2.0});
  };
  auto& input = qtDesktop().input();
  input.movePointer(
      pixelAt(widget, {end + (widget.width() - 2 * end) * sliderPosition(slider), widget.height() / 2.0}));
  input.buttonDown();
  letArrive();
  for (int step = 1; step <= 5; ++step) {
    input.glide(at(to), 1, Milliseconds{0});
    letArrive();
  }
  input.buttonUp();
  letArrive();
}

void QtSettingsDriver::choose(const std::string& section) {
  auto& list = dynamic_cast<QListWidget&>(control("sidebar"));
  for (int row = 0; row < list.count(); ++row) {
    if (list.item(row)->data(Qt::UserRole).toString().toStdString() != section) continue;
    qtDesktop().input().click(pixelAt(*list.viewport(), list.visualItemRect(list.item(row)).center()));
    letArrive();
  }
}

PixelPoint QtSettingsDriver::pixelOn(const std::string& picture, Point at) {
  const auto& view = dynamic_cast<qt::MiniatureView&>(control(picture));
  const QRectF screen = view.screen();
  return pixelAt(view, {screen.left() + at.x * screen.width(), screen.top() + at.y * screen.height()});
}

void QtSettingsDriver::grab(const std::string& picture, Point at) {
  reveal(control(picture));
  qtDesktop().input().movePointer(pixelOn(picture, at));
  letArrive();
  qtDesktop().input().buttonDown();
  letArrive();
}

void QtSettingsDriver::dragTo(const std::string& picture, Point to) {
  qtDesktop().input().glide(pixelOn(picture, to), 8, Milliseconds{1});
  letArrive();
}

void QtSettingsDriver::drop(const std::string&) {
  qtDesktop().input().buttonUp();
  letArrive();
}

void QtSettingsDriver::closeByHand() {
  qtDesktop().desktop().close(static_cast<desktop::WindowId>(frame()->winId()));
  settle([] { return frame() == nullptr || !frame()->isActiveWindow(); });
  letArrive();
}

void QtSettingsDriver::focus(const std::string& id) {
  for (int turn = 0; turn < 200; ++turn) {
    if (focused() == id) return;
    qtDesktop().input().press("Tab");
    runMainLoop(Milliseconds{8});
  }
  throw std::logic_error("Tab does not lead to " + id);
}

void QtSettingsDriver::type(const std::string& text) {
  for (const char c : text) {
    qtDesktop().input().press(c == ' ' ? std::string("space") : std::string(1, c));
    letArrive();
  }
}

void QtSettingsDriver::pressKeys(const HotKeySpec& keys) {
  qtDesktop().input().pressKeycode(static_cast<xcb_keycode_t>(scanCodes().at(keys.keyCode)),
                                   modifierNames(keys.modifiers));
  letArrive();
}

void QtSettingsDriver::holdUntilItRepeats(const HotKeySpec& keys) {
  auto& input = qtDesktop().input();
  for (const auto& position : x11::keyPositions) {
    if (position.keyCode != keys.keyCode) continue;
    const std::string key = "<" + std::string(position.name) + ">";
    if (keys.modifiers == HotKeySpec::control) input.keyDown("Control");
    input.keyDown(key);
    // The server repeats after 660 ms, every 40 ms.
    runMainLoop(Milliseconds{850});
    input.keyUp(key);
    if (keys.modifiers == HotKeySpec::control) input.keyUp("Control");
  }
  letArrive();
}

void QtSettingsDriver::pressModifiersAlone() {
  for (const char* name : {"Shift", "Control", "Alt", "Super"}) {
    qtDesktop().input().press(name);
    letArrive();
  }
}

void QtSettingsDriver::setCapsLock(bool on) {
  qtDesktop().input().setCapsLock(on);
  letArrive();
}

void QtSettingsDriver::leaveProgram() {
  if (!other_) other_.emplace(qtDesktop().server().display(), desktop::TestWindowOptions{});
  qtDesktop().desktop().activate(other_->id());
  settle([] { return QApplication::applicationState() != Qt::ApplicationActive; });
}

void QtSettingsDriver::returnToProgram() {
  qtDesktop().desktop().activate(static_cast<desktop::WindowId>(frame()->winId()));
  settle([this] { return isInFront(); });
}

bool QtSettingsDriver::isInFront() {
  return frame() != nullptr && frame()->isActiveWindow() && frame()->windowHandle()->isExposed() &&
         qtDesktop().desktop().activeWindow() == static_cast<desktop::WindowId>(frame()->winId());
}

}  // namespace tilwin::contract
