#include "tests/contract/qt/QtDialogsWorld.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <set>
#include <utility>

#include "platform/qt/QtMainQueue.h"
#include "platform/qt/menu/DialogBox.h"
#include "platform/qt/menu/QtDialogs.h"
#include "platform/qt/menu/WrappedLabel.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/qt/QtDesktop.h"

namespace tilwin::contract {
namespace {

qt::DialogBox* frontDialog() { return dynamic_cast<qt::DialogBox*>(QApplication::activeModalWidget()); }

/// The text as a label draws it.
std::string drawnText(const QLabel& label) {
  if (label.textFormat() != Qt::PlainText || label.buddy() != nullptr) return "(with markup)";
  return label.text().remove(QChar(0x200B)).toStdString();
}

std::string drawnLabel(const QPushButton& button) {
  QString drawn;
  for (qsizetype i = 0; i < button.text().size(); ++i) {
    if (button.text()[i] == '&') ++i;
    if (i < button.text().size()) drawn += button.text()[i];
  }
  return drawn.toStdString();
}

QList<QPushButton*> buttonsFromLeft(const QWidget& dialog) {
  auto buttons = dialog.findChildren<QPushButton*>();
  std::ranges::sort(buttons, {}, [](const auto* button) { return button->mapToGlobal(QPoint()).x(); });
  return buttons;
}

void clickOn(const QWidget& widget) {
  const QPoint at = widget.mapToGlobal(widget.rect().center());
  qtDesktop().input().click({at.x(), at.y()});
}

/// While a window manager closes one dialog, the focus may leave the next one again for a moment: keys that
/// are pressed then reach nobody.
class FocusWatch : public QObject {
public:
  FocusWatch() {
    connect(qApp, &QGuiApplication::focusWindowChanged, this, [this] { changed_ = desktop::Clock::now(); });
  }
  bool isSteadyOn(const QWidget* dialog) const {
    return dialog != nullptr && dialog->isVisible() && dialog->isActiveWindow() &&
           desktop::Clock::now() - changed_ >= steady;
  }

private:
  static constexpr desktop::Milliseconds steady{150};
  desktop::Clock::time_point changed_ = desktop::Clock::now();
};

/// Waits for the next dialog, carries out the steps and watches that it closes.
class DialogUser : public QTimer {
public:
  DialogUser(DialogsWorld::Steps steps, const FocusWatch& focus, std::set<const QWidget*>& attended)
      : steps_(std::move(steps)), focus_(focus), attended_(attended) {
    callOnTimeout([this] { look(); });
    start(5);
  }

private:
  void look() {
    const bool isLate = desktop::Clock::now() > until_;
    if (steps_) {
      if (auto* dialog = frontDialog()) attend(*dialog, isLate);
      return;
    }
    if (dialog_ && isLate) {
      ADD_FAILURE() << "the dialog stays open";
      dialog_->reject();
    }
    if (!dialog_ || isLate) stop();
  }

  void attend(qt::DialogBox& dialog, bool isLate) {
    if (attended_.contains(&dialog)) return;
    const bool isReady = focus_.isSteadyOn(&dialog);
    if (!isReady && !isLate) return;
    EXPECT_TRUE(isReady) << "the dialog does not get the focus";
    attended_.insert(&dialog);
    connect(&dialog, &QObject::destroyed, this, [this, gone = &dialog] { attended_.erase(gone); });
    dialog_ = &dialog;
    const auto steps = std::exchange(steps_, nullptr);
    if (isReady) steps();
    until_ = isReady ? desktop::Clock::now() + desktop::answerTimeout : desktop::Clock::now();
  }

  DialogsWorld::Steps steps_;
  const FocusWatch& focus_;
  std::set<const QWidget*>& attended_;
  QPointer<qt::DialogBox> dialog_;
  desktop::Clock::time_point until_ = desktop::Clock::now() + desktop::answerTimeout;
};

class QtDialogsWorld : public DialogsWorld {
public:
  Dialogs& dialogs() override { return dialogs_; }
  MainQueue& mainQueue() override { return queue_; }
  void whenOpen(Steps steps) override {
    users_.push_back(std::make_unique<DialogUser>(std::move(steps), focus_, attended_));
  }

  ShownDialog shown() override {
    const auto& dialog = *frontDialog();
    const auto labels = dialog.findChildren<qt::WrappedLabel*>();
    ShownDialog shown{.title = drawnText(*labels[0]),
                      .message = labels.size() > 1 ? drawnText(*labels[1]) : ""};
    for (const auto* button : buttonsFromLeft(dialog)) shown.buttons.push_back(drawnLabel(*button));
    if (const auto* field = dialog.findChild<QLineEdit*>()) {
      shown.field = ShownField{field->placeholderText().toStdString(), field->text().toStdString(),
                               Size{double(field->width()), double(field->height())}, field->hasFocus()};
    }
    return shown;
  }
  void type(const std::string& text) override {
    const auto* field = frontDialog()->findChild<QLineEdit*>();
    const QString wanted = field->text() + QString::fromStdString(text);
    for (const char letter : text) {
      qtDesktop().input().press(letter == ' ' ? "space" : std::string(1, letter));
    }
    EXPECT_TRUE(runMainLoopUntil([&] { return field->text() == wanted; }, desktop::answerTimeout));
  }
  void press(const std::string& button) override {
    const auto buttons = buttonsFromLeft(*frontDialog());
    const auto found = std::ranges::find_if(buttons, [&](auto* each) { return drawnLabel(*each) == button; });
    ASSERT_NE(found, buttons.end()) << button;
    clickOn(**found);
  }
  void pressReturn() override { pressOnceFocused("Return"); }
  void pressEscape() override { pressOnceFocused("Escape"); }
  void closeWindow() override {
    qtDesktop().desktop().close(static_cast<desktop::WindowId>(frontDialog()->winId()));
  }

private:
  void pressOnceFocused(const std::string& key) {
    EXPECT_TRUE(runMainLoopUntil([&] { return focus_.isSteadyOn(frontDialog()); }, desktop::answerTimeout))
        << "the dialog in front does not get the focus";
    qtDesktop().input().press(key);
  }

  qt::QtDialogs dialogs_;
  qt::QtMainQueue queue_;
  FocusWatch focus_;
  std::set<const QWidget*> attended_;
  std::vector<std::unique_ptr<DialogUser>> users_;
};

}  // namespace

std::unique_ptr<DialogsWorld> makeQtDialogs() { return std::make_unique<QtDialogsWorld>(); }

QWidget* frontDialogWindow() { return frontDialog(); }

INSTANTIATE_TEST_SUITE_P(Qt, DialogsContract, testing::Values(&makeQtDialogs));

}  // namespace tilwin::contract
