#include "tests/desktop/tour/MenuAct.h"

#include "tests/desktop/TilwinProcess.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/Panel.h"
#include "tests/desktop/harness/StatusIcon.h"
#include "tests/desktop/tour/Background.h"
#include "tests/desktop/tour/OwnWindow.h"
#include "tests/desktop/tour/SettingsAct.h"
#include "tests/desktop/tour/Stage.h"

namespace tilwin::desktop {

namespace {

constexpr PixelSize screen{1440, 900};
constexpr Rect middle{260, 60, 700, 480};

constexpr double margin = 12;
constexpr auto dialogTitle = "Tilwin";

/// Rows of the submenu of layouts: while none is saved, and as soon as one is.
constexpr int saveArrangement = 1;
constexpr int describeLayout = -2;

class MenuAct {
public:
  MenuAct(Session& session, const TourArguments& arguments, std::vector<Scene>& scenes, Album& album)
      : session_(session), stage_(session, arguments.output, scenes), album_(album) {}

  void play() {
    if (!icon_.appears()) throw HarnessError("the panel does not show the icon");
    height_ = session_.desktop().visibleFrame(session_.desktop().monitors().at(0)).height;
    saveTheArrangement();
    applyTheLayout();
    describeALayout();
    describeNonsense();
    saveAnArea();
    snapFromTheMenu();
  }

private:
  void saveTheArrangement() {
    stage_.set(editor_, {720, 0, 720, height_});
    stage_.set(terminal_, {0, 0, 720, height_});
    icon_.choose({row::layouts, saveArrangement});
    const WindowId prompt = waitForTitle(session_, dialogTitle);
    type(session_.input(), "Writing");
    album_.keep(session_, "prompt-save-arrangement", "a prompt: the name of an arrangement", around(prompt));
    album_.keep(session_, "prompt-on-desktop", "the same, with the desktop around it");
    session_.input().press("Return");
    waitForText(session_, session_.home().data() / "Tilwin" / "layouts.json", "Writing");
  }

  void applyTheLayout() {
    stage_.set(editor_, middle);
    stage_.set(terminal_, {100, 300, 700, 400});
    icon_.open();
    icon_.walk({row::layouts, 1});
    album_.keep(session_, "menu-layouts", "the layouts, with the one just saved", openMenus());
    const auto chosen = Clock::now();
    session_.input().press("Return");
    expect(editor_, {.by = "menu", .action = "layout-Writing", .expected = {720, 0, 720, height_}}, chosen);
    expectToo(terminal_, {.by = "menu", .action = "layout-Writing", .expected = {0, 0, 720, height_}});
  }

  void describeALayout() {
    icon_.choose({row::layouts, describeLayout});
    const WindowId prompt = waitForTitle(session_, dialogTitle);
    type(session_.input(), "xterm left third, featherpad right two thirds");
    album_.keep(session_, "prompt-describe-layout", "a prompt: a layout in words", around(prompt));
    const auto chosen = Clock::now();
    session_.input().press("Return");
    expect(editor_, {.by = "words", .action = "layout-described", .expected = {480, 0, 960, height_}},
           chosen);
    expectToo(terminal_, {.by = "words", .action = "layout-described", .expected = {0, 0, 480, height_}});
  }

  void describeNonsense() {
    icon_.choose({row::layouts, describeLayout});
    const WindowId prompt = waitForTitle(session_, dialogTitle);
    type(session_.input(), "calendar left, terminal upside down");
    session_.input().press("Return");
    waitForClosing(session_, prompt);
    const WindowId alert = waitForTitle(session_, dialogTitle);
    album_.keep(session_, "alert-nothing-to-place", "an alert: words that say nothing", around(alert));
    session_.input().press("Return");
    waitForClosing(session_, alert);
  }

  void saveAnArea() {
    stage_.set(editor_, {288, 0, 864, height_});
    icon_.choose({row::customAreas, 1});
    waitForTitle(session_, dialogTitle);
    type(session_.input(), "Reading column");
    session_.input().press("Return");
    waitForText(session_, session_.home().config() / "Tilwin" / "Tilwin.conf", "Reading column");
    icon_.open();
    icon_.walk({row::customAreas, 1});
    album_.keep(session_, "menu-custom-areas", "the area just made from a window", openMenus());
    icon_.close();
  }

  void snapFromTheMenu() {
    stage_.set(editor_, middle);
    icon_.open();
    icon_.walk({row::halves, 2});
    album_.keep(session_, "menu-halves", "the menu, opened at the icon, with a submenu", openMenus());
    const auto chosen = Clock::now();
    session_.input().press("Return");
    expect(editor_, {.by = "menu", .action = "menu-rightHalf", .expected = {720, 0, 720, height_}}, chosen);
  }

  void expect(const RealApplication& application, Scene scene, Clock::time_point chosen) {
    scene.right = true;
    stage_.keep(application, scene, chosen);
  }
  /// The same for another window that the choice before has moved.
  void expectToo(const RealApplication& application, Scene scene) {
    scene.timed = false;
    expect(application, scene, Clock::now());
  }

  /// The open menus and the end of the panel below them.
  Rect openMenus() {
    Rect all{screen.width, screen.height, 0, 0};
    for (const Rect& menu : icon_.menus()) all = united(all, menu);
    return withMargin(all, margin);
  }

  Rect around(WindowId window) {
    return withMargin(session_.desktop().frame(window).value_or(Rect()), margin);
  }

  Session& session_;
  StatusIcon icon_{session_};
  RealApplication terminal_{session_.open(Application::xterm)};
  RealApplication editor_{session_.open(Application::qt)};
  Stage stage_;
  Album& album_;
  double height_ = 0;  ///< of the screen above the panel
};

}  // namespace

void playMenuAndSettings(const TourArguments& arguments, std::vector<Scene>& scenes, Album& album) {
  Session session({.manager = Manager::xfwm4, .setup = {.compositing = false}, .screen = screen});
  paintBackground(session);
  const ChildProcess panel = startPanel(session, Panel::xfce);
  {
    const TilwinProcess program(session, arguments.tilwin);
    MenuAct(session, arguments, scenes, album).play();
    playSettings(session, arguments, album, "light");
  }
  session.home().write("config/gtk-3.0/settings.ini", "[Settings]\ngtk-application-prefer-dark-theme=1\n");
  const TilwinProcess program(session, arguments.tilwin);
  playSettings(session, arguments, album, "dark");
}

}  // namespace tilwin::desktop
