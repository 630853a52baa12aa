#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QMenu>
#include <QScrollArea>

#include "platform/qt/settings/MiniatureView.h"
#include "tests/contract/SampleForm.h"
#include "tests/contract/qt/QtSettingsDriver.h"

namespace tilwin::contract {
namespace {

/// What is particular to this toolkit: its keys, its focus, its pointer.
class QtSettingsKeyboard : public testing::Test {
protected:
  void SetUp() override {
    driver_.window().onEvent([this](const FormEvent& event) { events_.push_back(event); });
  }
  void TearDown() override { driver_.window().close(); }

  void open(const std::string& section) {
    driver_.window().show(sampleForm(section));
    ASSERT_TRUE(driver_.settle([&] { return driver_.isInFront(); }));
  }
  static void press(const std::string& chord) {
    qtDesktop().input().press(chord);
    QtSettingsDriver::letArrive();
  }

  QtSettingsDriver driver_;
  std::vector<FormEvent> events_;
};

TEST_F(QtSettingsKeyboard, TabGoesThroughTheControlsInReadingOrder) {
  open("shortcuts");
  std::vector<std::string> order{driver_.focused()};
  for (int turn = 0; turn < 7; ++turn) {
    press("Tab");
    order.push_back(driver_.focused());
  }
  EXPECT_EQ(order,
            (std::vector<std::string>{"sidebar", "search", "leftHalf.keys", "rightHalf.keys", "topHalf.reset",
                                      "topHalf.keys", "bottomHalf.reset", "bottomHalf.keys"}));
}

TEST_F(QtSettingsKeyboard, TabKeepsReadingOrderWhenRowsCome) {
  auto form = sampleForm("areas");
  open("areas");
  auto& groups = sectionIn(form, "areas").groups;
  std::swap(groups[0], groups[1]);
  driver_.window().update(form);
  std::vector<std::string> order;
  for (int turn = 0; turn < 8; ++turn) {
    press("Tab");
    order.push_back(driver_.focused());
  }
  EXPECT_EQ(order, (std::vector<std::string>{"area2.name", "area2.Left", "area2.Top", "area2.Width",
                                             "area2.Height", "area2.keys", "area2.delete", "area1.name"}));
}

TEST_F(QtSettingsKeyboard, TheFocusedControlIsScrolledIntoView) {
  open("shortcuts");
  driver_.focus("previousDisplay.keys");
  auto& button = QtSettingsDriver::control("previousDisplay.keys");
  EXPECT_TRUE(button.visibleRegion().boundingRect() == button.rect());
}

TEST_F(QtSettingsKeyboard, ArrowsChooseSections) {
  open("spacing");
  press("Down");
  EXPECT_EQ(events_, std::vector<FormEvent>{form::SectionChosen{"behavior"}});
  driver_.window().update(sampleForm("behavior"));
  press("Down");
  EXPECT_EQ(events_.back(), FormEvent(form::SectionChosen{"shortcuts"}));
  EXPECT_EQ(driver_.focused(), "sidebar");
}

TEST_F(QtSettingsKeyboard, ControlFAndSlashGoToTheSearchField) {
  open("shortcuts");
  press("Control+F");
  EXPECT_EQ(driver_.focused(), "search");
  press("Tab");
  ASSERT_EQ(driver_.focused(), "leftHalf.keys");
  press("/");
  EXPECT_EQ(driver_.focused(), "search");
  press("/");
  EXPECT_EQ(events_, (std::vector<FormEvent>{form::TextChanged{"search", "/"}}));
}

TEST_F(QtSettingsKeyboard, EscapeEmptiesTheSearchBeforeItClosesTheWindow) {
  open("shortcuts");
  press("Control+F");
  press("u");
  press("Escape");
  press("Escape");
  EXPECT_EQ(events_, (std::vector<FormEvent>{form::TextChanged{"search", "u"},
                                             form::TextChanged{"search", ""}, form::WindowClosed{}}));
}

TEST_F(QtSettingsKeyboard, ControlWClosesTheWindow) {
  open("areas");
  driver_.focus("area1.name");
  press("Control+w");
  EXPECT_EQ(events_, std::vector<FormEvent>{form::WindowClosed{}});
  EXPECT_FALSE(driver_.window().isOpen());
}

TEST_F(QtSettingsKeyboard, TheWheelScrollsAPageAndMovesNoSlider) {
  open("areas");
  auto& slider = QtSettingsDriver::control("area1.Left");
  const auto* scroll = QtSettingsDriver::frame()->findChild<QScrollArea*>();
  const auto at = QtSettingsDriver::pixelAt(slider, {slider.width() / 2.0, slider.height() / 2.0});
  const int before = scroll->widget()->y();
  qtDesktop().input().click(at, 5);
  EXPECT_TRUE(driver_.settle([&] { return scroll->widget()->y() < before; }));
  EXPECT_EQ(events_, std::vector<FormEvent>{});
}

TEST_F(QtSettingsKeyboard, TheKeypadAndOtherLayoutsRecordTheirPositions) {
  auto form = sampleForm("shortcuts");
  findControl<FormRecorder>(form, "leftHalf.keys")->isRecording = true;
  driver_.window().show(form);
  ASSERT_TRUE(driver_.settle([&] { return driver_.focused() == "leftHalf.keys"; }));
  qtDesktop().input().pressAt("KP5", "Control");
  qtDesktop().server().setKeyboardLayout("fr");
  qtDesktop().input().pressAt("AD01");
  driver_.settle([&] { return events_.size() >= 2; });
  qtDesktop().server().setKeyboardLayout("us");
  EXPECT_EQ(events_,
            (std::vector<FormEvent>{form::KeyPressed{{87, HotKeySpec::control}}, form::KeyPressed{{12, 0}}}));
}

TEST_F(QtSettingsKeyboard, TellsWhenADialogOfThisProgramTakesTheFocus) {
  open("shortcuts");
  QDialog dialog;
  dialog.show();
  ASSERT_TRUE(driver_.settle([&] { return dialog.isActiveWindow(); }));
  EXPECT_EQ(events_, std::vector<FormEvent>{form::FocusLost{}});
  dialog.close();
  driver_.returnToProgram();
  ASSERT_TRUE(driver_.isInFront());
  EXPECT_EQ(events_, std::vector<FormEvent>{form::FocusLost{}}) << "coming back is not leaving";
}

TEST_F(QtSettingsKeyboard, AMenuOfItsOwnDoesNotTakeTheFocus) {
  open("shortcuts");
  driver_.focus("search");
  press("Menu");
  ASSERT_TRUE(
      driver_.settle([] { return dynamic_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; }));
  QtSettingsDriver::letArrive();
  press("Escape");
  ASSERT_TRUE(driver_.settle([] { return QApplication::activePopupWidget() == nullptr; }));
  EXPECT_EQ(events_, std::vector<FormEvent>{});
}

TEST_F(QtSettingsKeyboard, ThePointerShowsHowAPictureCanBeDragged) {
  open("areas");
  auto& view = dynamic_cast<qt::MiniatureView&>(QtSettingsDriver::control("area1.picture"));
  QtSettingsDriver::reveal(view);
  const auto shapeAt = [&](double x, double y) {
    const QRectF screen = view.screen();
    const QPointF at(screen.left() + x * screen.width(), screen.top() + y * screen.height());
    qtDesktop().input().movePointer(QtSettingsDriver::pixelAt(view, at));
    QtSettingsDriver::letArrive();
    return view.cursor().shape();
  };
  EXPECT_EQ(shapeAt(0.2, 0.5), Qt::SizeHorCursor);
  EXPECT_EQ(shapeAt(0.8, 0.5), Qt::SizeHorCursor);
  EXPECT_EQ(shapeAt(0.5, 0.98), Qt::SizeVerCursor);
  EXPECT_EQ(shapeAt(0.8, 0.98), Qt::SizeFDiagCursor);
  EXPECT_EQ(shapeAt(0.2, 0.98), Qt::SizeBDiagCursor);
  EXPECT_EQ(shapeAt(0.5, 0.5), Qt::SizeAllCursor);
  EXPECT_EQ(shapeAt(0.05, 0.5), Qt::ArrowCursor);
}

}  // namespace
}  // namespace tilwin::contract
