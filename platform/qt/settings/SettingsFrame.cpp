#include "platform/qt/settings/SettingsFrame.h"

#include <QCloseEvent>
#include <QFont>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/qt/settings/RowControl.h"
#include "platform/qt/settings/SectionPage.h"
#include "platform/qt/settings/Sidebar.h"
#include "platform/qt/settings/Theme.h"

namespace tilwin::qt {
namespace {

constexpr QSize initialSize{880, 640};
constexpr double smallestFont = 10;  // points; Qt takes 9 where no desktop gives one
constexpr QSize smallestSize{720, 480};

QFont legible(QFont font) {
  font.setPointSizeF(std::max(font.pointSizeF(), smallestFont));
  return font;
}

bool isClosing(const QKeyEvent& event) {
  return event.key() == Qt::Key_Escape || event.matches(QKeySequence::Close) ||
         (event.key() == Qt::Key_W && event.modifiers() == Qt::ControlModifier);
}

/// Menus and the like take the focus only until they are gone.
bool isPassing(const QWindow& window) { return window.type() == Qt::Popup || window.type() == Qt::ToolTip; }

bool isSearching(const QKeyEvent& event) {
  return event.matches(QKeySequence::Find) || event.text() == QLatin1String("/");
}

}  // namespace

SettingsFrame::SettingsFrame(Report report, KeyCodeOf keyCodeOf, std::function<void()> onClosing)
    : target_(std::move(report)),
      report_([this](const FormEvent& event) {
        if (!isSilent_) target_(event);
      }),
      onClosing_(std::move(onClosing)),
      capture_(new KeyCapture(this, report_, std::move(keyCodeOf))),
      sidebar_(new Sidebar(report_, this)),
      layout_(new QHBoxLayout(this)) {
  // A font given in pixels has no size in points.
  if (font().pointSizeF() > 0) setFont(legible(font()));
  setObjectName(QStringLiteral("settings"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setMinimumSize(smallestSize);
  resize(initialSize);
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setSpacing(0);
  layout_->addWidget(sidebar_);
  connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
          [this](const QWindow* focused) { noteFocus(focused); });
}

SettingsFrame::~SettingsFrame() {
  fallSilent();
  // Before what they report to.
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

void SettingsFrame::display(const FormModel& form) {
  setWindowTitle(QString::fromStdString(form.title));
  // Before the controls, one of which may take the focus in order to record.
  capture_->setOn(form.isRecording());
  sidebar_->display(form);
  const auto chosen = std::ranges::find(form.sections, form.chosenSection, &FormSection::id);
  if (chosen != form.sections.end()) displaySection(*chosen);
  orderFocus();
}

void SettingsFrame::displaySection(const FormSection& section) {
  SectionPage* former = page_ != nullptr && page_->section() != section.id ? page_ : nullptr;
  if (page_ == nullptr || former != nullptr) {
    page_ = new SectionPage(report_, this);
    page_->display(section);
    layout_->addWidget(page_, 1);
    page_->show();
  } else {
    page_->display(section);
  }
  if (former == nullptr) return;
  if (former->isAncestorOf(focusWidget())) sidebar_->setFocus();
  layout_->removeWidget(former);
  discard(former);
}

void SettingsFrame::orderFocus() {
  std::vector<QWidget*> order{sidebar_};
  if (page_ != nullptr) {
    const auto controls = page_->controls();
    order.insert(order.end(), controls.begin(), controls.end());
  }
  if (order == focusOrder_) return;
  for (std::size_t index = 1; index < order.size(); ++index) setTabOrder(order[index - 1], order[index]);
  focusOrder_ = std::move(order);
}

void SettingsFrame::fallSilent() {
  capture_->setOn(false);
  disconnect(qGuiApp, nullptr, this, nullptr);
  isSilent_ = true;
}

void SettingsFrame::dismiss() {
  fallSilent();
  discard(this);
}

void SettingsFrame::noteFocus(const QWindow* focused) {
  if (focused != nullptr && isPassing(*focused)) return;
  const bool hasFocus = focused != nullptr && focused == windowHandle();
  if (std::exchange(hadFocus_, hasFocus) && !hasFocus) report_(form::FocusLost{});
}

void SettingsFrame::closeEvent(QCloseEvent* event) {
  event->accept();
  onClosing_();
  target_(form::WindowClosed{});
}

void SettingsFrame::keyPressEvent(QKeyEvent* event) {
  if (event->isAutoRepeat()) return;
  if (isClosing(*event)) {
    close();
  } else if (isSearching(*event) && page_ != nullptr) {
    page_->focusSearch();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void SettingsFrame::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Theme theme = Theme::of(palette());
  const QRect side(sidebar_->geometry());
  painter.fillRect(side.x(), 0, side.width(), height(), theme.sidebar);
  painter.fillRect(side.right(), 0, 1, height(), theme.line);
}

}  // namespace tilwin::qt
