#include "tests/desktop/soak/SoakDesktop.h"

#include <algorithm>
#include <sstream>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/soak/KeptLayout.h"
#include "tests/desktop/soak/Scenery.h"

namespace tilwin::desktop::soak {

namespace {

constexpr PixelSize smallest{300, 260};
constexpr int panelHeight = 40;
/// Once a manager or the displays have changed.
constexpr Milliseconds commotion{500};
/// The program waits 2.5 s before it puts windows back. What it finds then is known if seen before that.
constexpr Milliseconds beforeReturn{2000};
constexpr Milliseconds returnTimeout{10000};

}  // namespace

SoakDesktop::SoakDesktop(std::filesystem::path tilwin, Manager manager)
    : executable_(std::move(tilwin)), session_({.manager = manager, .displays = arrangements().front()}) {
  model_.displays = displaysFor(arrangements().front());
  tilwin_ = std::make_unique<TilwinProcess>(session_, executable_);
}

ModelWindow& SoakDesktop::open(Dice& dice) {
  const auto& sort = dice.oneOf(windowSorts);
  const std::string number = std::to_string(++opened_);
  const std::string name = "Soak" + std::string(4 - std::min<std::size_t>(number.size(), 4), '0') + number;
  note("opens " + name + ", " + sort.name);
  const TestWindowOptions options{
      .className = name, .title = name, .area = someFrame(dice), .undecorated = sort.isUndecorated};
  clients_[name] = std::make_unique<TestWindow>(session_.server().display(), options);
  auto& window = model_.windows.emplace_back();
  window.name = name;
  window.hasTitleBar = !sort.isUndecorated;
  return window;
}

void SoakDesktop::close(const ModelWindow& window) {
  const std::string name = window.name;
  note("closes " + name);
  const WindowId closed = id(window);
  clients_.erase(name);
  std::erase_if(model_.windows, [&](const ModelWindow& each) { return each.name == name; });
  const auto isGone = [&] {
    const auto listed = desktop().clients();
    return std::ranges::find(listed, closed) == listed.end();
  };
  if (!desktop().waitUntil(isGone)) throw HarnessError(name + " is still listed though it has been closed");
}

void SoakDesktop::focus(const ModelWindow& window) {
  if (desktop().activeWindow() != id(window)) bringToFront(window);
}

void SoakDesktop::bringToFront(const ModelWindow& window) {
  if (!desktop().activate(id(window))) throw HarnessError(window.name + " cannot be given the focus");
}

void SoakDesktop::gather(Dice& dice) {
  for (auto& window : model_.windows) {
    if (window.now.state == State::normal && !model_.isInside(window.now.frame)) {
      placeByHand(window, someFrame(dice));
    }
  }
  settle();
}

void SoakDesktop::placeByHand(ModelWindow& window, const Rect& frame) {
  note("places " + window.name + " by hand, " + text(frame));
  model_.placed(window, frame);
  desktop().place(id(window), frame);
}

Rect SoakDesktop::someFrame(Dice& dice) const {
  const Rect area = dice.oneOf(model_.displays).area();
  const int width = dice.between(smallest.width, static_cast<int>(area.width * 0.8));
  const int height = dice.between(smallest.height, static_cast<int>(area.height * 0.8));
  return {area.x + dice.between(0, static_cast<int>(area.width) - width),
          area.y + dice.between(0, static_cast<int>(area.height) - height), static_cast<double>(width),
          static_cast<double>(height)};
}

Standing SoakDesktop::look(const ModelWindow& window) {
  Desktop& seen = desktop();
  const WindowId client = id(window);
  State state = State::normal;
  if (seen.has(client, WindowState::maximizedVertically) ||
      seen.has(client, WindowState::maximizedHorizontally)) {
    state = State::maximized;
  }
  if (seen.has(client, WindowState::fullScreen)) state = State::fullScreen;
  return {seen.frame(client).value_or(Rect()), state};
}

std::optional<Rect> SoakDesktop::preview() {
  const auto overlay = desktop().unmanagedOfClass("Tilwin");
  return overlay ? desktop().topLevelArea(*overlay) : std::nullopt;
}

void SoakDesktop::arrange(const std::vector<PluggedDisplay>& displays) {
  showPanel(false);
  const auto before = model_.signature();
  model_.displaysChanged(displaysFor(displays));
  session_.server().arrange(displays);
  const auto arrangedAt = Clock::now();
  const auto kept = keptLayout(session_.home(), model_.signature());
  settle(commotion);
  if (!kept || model_.signature() == before) return;
  const bool isKnown = Clock::now() - arrangedAt < beforeReturn;
  const auto ordered = model_.inOrder();
  for (auto& window : model_.windows) {
    const auto place = kept->find(window.name);
    if (place == kept->end()) continue;
    if (!isKnown) window.memory.isUnknown = true;
    model_.laidOut(window, place->second.share,
                   ordered.at(std::min(place->second.display, ordered.size() - 1)));
  }
  note("of which windows return that " + std::to_string(kept->size()) + " were kept of");
  settle(commotion, returnTimeout);
}

void SoakDesktop::showPanel(bool on) {
  if (on == hasPanel()) return;
  // A strut is measured from the edge of the whole desktop.
  auto& display = *std::ranges::find(model_.displays, 0.0, [](const Display& each) { return each.frame.y; });
  note((on ? "shows a panel on " : "ends the panel on ") + display.output);
  const int from = static_cast<int>(display.frame.x);
  const int end = static_cast<int>(display.frame.maxX());
  panel_ = on ? std::make_unique<TestWindow>(
                    session_.server().display(),
                    TestWindowOptions{.className = "Panel",
                                      .title = "Panel",
                                      .area = {display.frame.x, 0, display.frame.width, panelHeight},
                                      .kind = WindowKind::dock,
                                      .strut = {.top = panelHeight},
                                      .strutSpans = {0, 0, 0, 0, from, end - 1, 0, 0}})
              : nullptr;
  display.panel = on ? panelHeight : 0;
  for (auto& window : model_.windows) Model::leftToManager(window);
  const auto isDone = [&] { return desktop().struts().empty() != on; };
  if (!desktop().waitUntil(isDone)) throw HarnessError("the manager does not take note of the panel");
  settle(commotion);
}

void SoakDesktop::replaceManager(Manager by, const std::function<void()>& meanwhile) {
  manager().stop();
  meanwhile();
  model_.managerChanged();
  if (manager().traits().manager == by) {
    manager().start();
  } else {
    replacement_ = std::make_unique<WindowManager>(by, ManagerSetup{}, session_.home(),
                                                   session_.environment(), desktop());
  }
  const auto areManaged = [&] {
    const auto listed = desktop().clients();
    return std::ranges::all_of(model_.windows, [&](const ModelWindow& window) {
      return std::ranges::find(listed, id(window)) != listed.end() && desktop().viewable(id(window));
    });
  };
  if (!desktop().waitUntil(areManaged, startTimeout)) throw HarnessError("windows were lost");
  settle(commotion);
}

void SoakDesktop::restartTilwin(const Spacing& spacing, int signal) {
  tilwin_->process().signal(signal);
  if (!tilwin_->process().waitFor(answerTimeout)) throw HarnessError("Tilwin does not end");
  tilwin_.reset();
  writeSettings(spacing);
  model_.spacing = spacing;
  model_.programRestarted();
  tilwin_ = std::make_unique<TilwinProcess>(session_, executable_);
}

void SoakDesktop::writeSettings(const Spacing& spacing) {
  std::ostringstream json;
  json << R"([General]
tilwin.settings.v1="{\"outer\":)"
       << spacing.outer << R"(,\"gap\":)" << spacing.gap << R"(,\"cycleWidths\":)"
       << (spacing.cycles ? "true" : "false") << "}\"\n";
  session_.home().write("config/Tilwin/Tilwin.conf", json.str());
}

void SoakDesktop::settle(Milliseconds quiet, Milliseconds patience) {
  const auto isThere = [&] {
    return std::ranges::all_of(model_.windows,
                               [&](const auto& each) { return each.next.allows(look(each)); });
  };
  // Where nothing certain is to be waited for, a state may still be on its way.
  const bool isForeseen = std::ranges::all_of(model_.windows, &Expected::isCertain, &ModelWindow::next);
  desktop().waitUntil(isThere, patience);
  desktop().settle(isForeseen ? quiet : std::max(quiet, commotion));
  compare();
}

void SoakDesktop::compare() {
  std::string wrong;
  if (!tilwin_->process().running()) wrong += "Tilwin has ended\n";
  if (const auto shown = preview()) wrong += "a preview is left at " + text(*shown) + "\n";
  if (tilwin_->log().find("X error") != std::string::npos) wrong += "Tilwin reports an X error\n";
  for (auto& window : model_.windows) {
    const auto standing = look(window);
    if (!window.next.allows(standing)) {
      wrong += window.name + ": expected " + text(window.next) + ", saw " + text(standing) + "\n";
    }
    Model::seen(window, standing);
  }
  if (!wrong.empty()) throw HarnessError(wrong);
}

}  // namespace tilwin::desktop::soak
