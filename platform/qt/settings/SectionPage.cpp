#include "platform/qt/settings/SectionPage.h"

#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include "platform/qt/settings/GroupView.h"
#include "platform/qt/settings/TextField.h"
#include "platform/qt/settings/Theme.h"
#include "platform/qt/settings/ThinScrollBar.h"

namespace tilwin::qt {
namespace {

constexpr int besideGroups = 3 * metrics::grid;

TextLabel* pageLabel(TextLabel::Tone tone, const char* name, QWidget* parent) {
  auto* label = new TextLabel(tone, parent);
  label->setObjectName(QString::fromLatin1(name));
  return label;
}

}  // namespace

SectionPage::SectionPage(const Report& report, QWidget* parent)
    : QWidget(parent),
      report_(report),
      title_(pageLabel(TextLabel::Tone::pageTitle, "sectionTitle", this)),
      help_(pageLabel(TextLabel::Tone::secondary, "sectionHelp", this)),
      scroll_(new QScrollArea(this)),
      content_(new QWidget(this)),
      header_(makeHeader()),
      stack_(new QVBoxLayout(content_)) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(header_);
  layout->addWidget(scroll_, 1);
  emptyText_ = pageLabel(TextLabel::Tone::secondary, "emptyText", content_);
  emptyText_->setContentsMargins(metrics::ring, 0, metrics::ring, 0);
  makeScroll();
}

QVBoxLayout* SectionPage::makeHeader() {
  auto* header = new QVBoxLayout;
  header->setSpacing(6);
  // The search field has room for its focus ring around it.
  for (auto* label : {title_, help_}) label->setContentsMargins(metrics::ring, 0, metrics::ring, 0);
  header->addWidget(title_);
  header->addWidget(help_);
  return header;
}

void SectionPage::makeScroll() {
  stack_->setSpacing(besideGroups);
  stack_->addWidget(emptyText_);
  stack_->addStretch(1);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setVerticalScrollBar(new ThinScrollBar(scroll_));
  scroll_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setWidgetResizable(true);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setWidget(content_);
  content_->setAutoFillBackground(false);
  scroll_->viewport()->setAutoFillBackground(false);
  // The line below the header shows while something is scrolled under it.
  connect(scroll_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
}

void SectionPage::display(const FormSection& section) {
  section_ = section.id;
  title_->display(section.title);
  help_->display(section.help);
  displaySearch(section.search);
  groups_.update(section.groups, *stack_, 0, [this] { return new GroupView(report_, content_); });
  emptyText_->display(section.groups.empty() ? section.emptyText : std::string());
}

void SectionPage::displaySearch(const std::optional<FormTextField>& search) {
  const bool isOther = search_ != nullptr && (!search || search_->objectName().toStdString() != search->id);
  if (isOther) {
    discard(search_);
    search_ = nullptr;
  }
  if (!search) return;
  if (search_ == nullptr) {
    search_ = new TextField(*search, report_, this);
    header_->addWidget(search_);
    search_->show();
  }
  search_->display(*search);
}

std::vector<QWidget*> SectionPage::controls() const {
  std::vector<QWidget*> result;
  if (search_ != nullptr) result.push_back(search_);
  for (const auto* group : groups_.views()) group->addControls(result);
  return result;
}

void SectionPage::focusSearch() {
  if (search_ == nullptr) return;
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

void SectionPage::centreContent() {
  const int side = qMax(metrics::pageMargin, (width() - metrics::widestContent) / 2);
  const int outer = side - metrics::ring;
  header_->setContentsMargins(outer, metrics::pageMargin, outer, 2 * metrics::grid);
  // The scroll bar takes its room from the margin, so that cards end where the header ends.
  const int bar = scroll_->verticalScrollBar()->sizeHint().width();
  stack_->setContentsMargins(outer, metrics::grid / 2, outer - bar, metrics::pageMargin);
}

void SectionPage::resizeEvent(QResizeEvent* event) {
  centreContent();
  QWidget::resizeEvent(event);
}

void SectionPage::paintEvent(QPaintEvent*) {
  if (scroll_->verticalScrollBar()->value() == 0) return;
  QPainter painter(this);
  painter.fillRect(0, scroll_->y() - 1, width(), 1, Theme::of(palette()).line);
}

}  // namespace tilwin::qt
