#include "platform/qt/settings/ColourScheme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QTimer>
#include <filesystem>
#include <optional>

#include "platform/qt/menu/QtDialogs.h"
#include "platform/qt/settings/QtSettingsWindow.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/NamedPipe.h"
#include "tests/contract/qt/QtDesktop.h"

namespace tilwin::qt {
namespace {

using contract::qtDesktop;
using Wish = ColourScheme::Wish;

bool isDarkNow() { return ColourScheme::isDark(QApplication::palette()); }

std::string windowColour() { return QApplication::palette().color(QPalette::Window).name().toStdString(); }

/// A portal with this value, which answers after so many seconds.
class Portal {
public:
  explicit Portal(const std::string& value, const std::string& delay = "0")
      : process_(qtDesktop().start(
            "portal", {"/usr/bin/python3", "-B", std::string(TILWIN_QT_TEST_FOLDER) + "/settings_portal.py",
                       value, delay})) {
    EXPECT_TRUE(waitForName(true));
  }
  Portal(const Portal&) = delete;
  Portal& operator=(const Portal&) = delete;
  ~Portal() {
    process_.end();
    EXPECT_TRUE(waitForName(false));
  }

private:
  static bool waitForName(bool wanted) {
    return runMainLoopUntil(
        [&] {
          return QDBusConnection::sessionBus()
                     .interface()
                     ->isServiceRegistered(QStringLiteral("org.freedesktop.portal.Desktop"))
                     .value() == wanted;
        },
        desktop::startTimeout);
  }

  desktop::ChildProcess process_;
};

/// What a test makes of the application's palette ends with it.
class KeptPalette {
public:
  KeptPalette() = default;
  KeptPalette(const KeptPalette&) = delete;
  KeptPalette& operator=(const KeptPalette&) = delete;
  ~KeptPalette() { QApplication::setPalette(palette_); }

private:
  QPalette palette_ = QApplication::palette();
};

class ColourSchemeTest : public testing::Test {
protected:
  void TearDown() override { std::filesystem::remove_all(qtDesktop().home().config() / "gtk-3.0"); }

  static void writeGtk(const std::string& text) {
    qtDesktop().home().write("config/gtk-3.0/settings.ini", text);
  }
  void apply() {
    colours_.ask();
    colours_.apply();
  }

  static constexpr const char* darkTheme = "[Settings]\ngtk-theme-name=Adwaita-dark\n";
  KeptPalette kept_;
  ColourScheme colours_;
};

struct GtkCase {
  const char* text;
  Wish wish;
};

TEST(ColourSchemeOfGtk, ReadsWhetherTheThemeIsDark) {
  for (const auto& [text, wish] : {
           GtkCase{"", Wish::none},
           {"[Settings]\ngtk-application-prefer-dark-theme=1\n", Wish::dark},
           {"[Settings]\ngtk-application-prefer-dark-theme = true", Wish::dark},
           {"[Settings]\r\ngtk-application-prefer-dark-theme=1\r\ngtk-theme-name=Adwaita\r\n", Wish::dark},
           {"[Settings]\ngtk-application-prefer-dark-theme=0\n", Wish::none},
           {"[Settings]\n#gtk-application-prefer-dark-theme=1\n", Wish::none},
           {"[Settings]\ngtk-theme-name=Yaru-Dark\n", Wish::dark},
           {"[Settings]\ngtk-theme-name=\"Adwaita-dark\"\n", Wish::dark},
           {"[Settings]\ngtk-theme-name=Adwaita\n", Wish::none},
           {"[Settings]\ngtk-theme-name=Darkly\n", Wish::none},
           {"[Settings]\ngtk-icon-theme-name=Papirus-Dark\n", Wish::none},
       }) {
    EXPECT_EQ(ColourScheme::inGtkSettings(QString::fromLatin1(text)), wish) << text;
  }
}

TEST_F(ColourSchemeTest, IsLightIfNobodyAsksForDark) {
  apply();
  EXPECT_FALSE(isDarkNow());
}

TEST_F(ColourSchemeTest, DoesNotWaitForANamedPipeInPlaceOfGtksSettings) {
  const auto folder = qtDesktop().home().config() / "gtk-3.0";
  std::filesystem::create_directories(folder);
  EXPECT_FALSE(waitsForNamedPipe(folder / "settings.ini", [&] { apply(); }));
  EXPECT_FALSE(isDarkNow());
}

TEST_F(ColourSchemeTest, FollowsGtkWhereThereIsNoPortal) {
  writeGtk(darkTheme);
  apply();
  EXPECT_TRUE(isDarkNow());
  writeGtk("[Settings]\n");
  apply();
  EXPECT_FALSE(isDarkNow());
}

TEST_F(ColourSchemeTest, FollowsThePortal) {
  const Portal portal("1");
  apply();
  EXPECT_TRUE(runMainLoopUntil(isDarkNow, desktop::answerTimeout));
}

TEST_F(ColourSchemeTest, ThePortalOverrulesGtk) {
  writeGtk(darkTheme);
  const Portal portal("2");
  apply();
  EXPECT_TRUE(runMainLoopUntil([] { return !isDarkNow(); }, desktop::answerTimeout));
}

TEST_F(ColourSchemeTest, APortalWithoutPreferenceLeavesItToGtk) {
  writeGtk(darkTheme);
  const Portal portal("0");
  apply();
  EXPECT_TRUE(isDarkNow());
  runMainLoop(desktop::Milliseconds{100});
  EXPECT_TRUE(isDarkNow());
}

TEST_F(ColourSchemeTest, ASlowPortalIsNotWaitedForAndStillCounts) {
  const Portal portal("1", "0.4");
  const auto start = desktop::Clock::now();
  apply();
  EXPECT_LT(desktop::Clock::now() - start, desktop::Milliseconds{200});
  EXPECT_FALSE(isDarkNow());
  EXPECT_TRUE(runMainLoopUntil(isDarkNow, desktop::answerTimeout));
}

TEST_F(ColourSchemeTest, APaletteThatIsDarkAlreadyIsLeftAlone) {
  QPalette own(QColor(0x10, 0x20, 0x10));
  own.setColor(QPalette::WindowText, Qt::white);
  QApplication::setPalette(own);
  apply();
  EXPECT_EQ(windowColour(), "#102010");
}

TEST_F(ColourSchemeTest, TheApplicationGetsItsOwnColoursBack) {
  const auto before = windowColour();
  ASSERT_FALSE(isDarkNow());
  writeGtk(darkTheme);
  {
    ColourScheme other;
    other.ask();
    other.apply();
    ASSERT_TRUE(isDarkNow());
  }
  EXPECT_EQ(windowColour(), before);
}

TEST_F(ColourSchemeTest, ADialogIsDarkOnADarkDesktopThoughNoSettingsWereOpened) {
  writeGtk(darkTheme);
  QtSettingsWindow settings([](std::uint32_t) { return std::nullopt; });
  QtDialogs dialogs([&settings] { settings.takeColours(); });
  std::optional<bool> isDark;
  QTimer looking;
  looking.callOnTimeout([&isDark] {
    auto* const dialog = QApplication::activeModalWidget();
    if (dialog == nullptr) return;
    isDark = ColourScheme::isDark(dialog->palette());
    dialog->close();
  });
  looking.start(10);
  dialogs.alert({"2 windows not open", "Mail, Notes"});
  EXPECT_EQ(isDark, true);
}

}  // namespace
}  // namespace tilwin::qt
