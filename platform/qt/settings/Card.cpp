#include "platform/qt/settings/Card.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/settings/MiniatureView.h"
#include "platform/qt/settings/Painting.h"

namespace tilwin::qt {
namespace {

constexpr int widestTitleColumn = 200;
constexpr int widestCaptionColumn = 240;
constexpr int besideCardPicture = 3 * metrics::grid;

}  // namespace

Card::Card(const Report& report, QWidget* parent)
    : QWidget(parent), report_(report), layout_(new QHBoxLayout(this)), stack_(new QVBoxLayout) {
  layout_->setSpacing(besideCardPicture - metrics::ring);
  stack_->setSpacing(0);
  stack_->setContentsMargins(0, 0, 0, 0);
  layout_->addLayout(stack_, 1);
}

void Card::display(const FormGroup& group) {
  displayPicture(group.picture);
  rows_.update(group.rows, *stack_, 0, [this] { return new RowView(report_, this); });
  const auto views = rows_.views();
  isBare_ = !group.picture && std::ranges::all_of(views, &RowView::isBare);
  const int side = isBare_ ? 0 : metrics::cardPadding - metrics::ring;
  const int ends = picture_ != nullptr ? metrics::grid : 0;
  layout_->setContentsMargins(picture_ != nullptr ? metrics::cardPadding : side, ends, side, ends);
  for (auto* view : views) view->setPadding(picture_ != nullptr || isBare_ ? 2 : 6);
  shareColumns();
  update();
}

void Card::displayPicture(const std::optional<FormPicture>& picture) {
  if (!picture) {
    if (picture_ != nullptr) discard(picture_);
    picture_ = nullptr;
    return;
  }
  if (picture_ == nullptr) {
    picture_ = new MiniatureView(MiniatureView::Scale::large, report_, this);
    layout_->insertWidget(0, picture_, 0, Qt::AlignVCenter);
    picture_->show();
  }
  picture_->display(*picture);
}

void Card::shareColumns() {
  RowColumns shared;
  for (const auto* view : rows_.views()) {
    const RowColumns wanted = view->wantedColumns();
    shared.title = std::max(shared.title, std::min(wanted.title, widestTitleColumn));
    shared.caption = std::max(shared.caption, std::min(wanted.caption, widestCaptionColumn));
  }
  for (auto* view : rows_.views()) view->setColumns(shared);
}

void Card::paintEvent(QPaintEvent*) {
  if (isBare_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Theme theme = Theme::of(palette());
  painter.setPen(QPen(theme.line, 1));
  painter.setBrush(theme.card);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), metrics::cardRadius,
                          metrics::cardRadius);
  if (picture_ != nullptr) return;
  const auto views = rows_.views();
  for (std::size_t index = 1; index < views.size(); ++index) {
    const double y = views[index]->y() + 0.5;
    painter.drawLine(QPointF(metrics::cardPadding, y), QPointF(width() - metrics::cardPadding, y));
  }
}

}  // namespace tilwin::qt
