#include "platform/qt/settings/Card.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/settings/MiniatureView.h"
#include "platform/qt/settings/Painting.h"

namespace tilwin::qt {
namespace {

constexpr double widestTitleColumn = 200;
constexpr double widestCaptionColumn = 240;
constexpr int tightPadding = 2;
constexpr int narrowestBeside = 190;
constexpr int besideCardPicture = 3 * metrics::grid - metrics::ring;

}  // namespace

Card::Card(const Report& report, QWidget* parent)
    : QWidget(parent), report_(report), box_(new QWidget(this)), stack_(new QVBoxLayout(box_)) {
  stack_->setSpacing(0);
  stack_->setContentsMargins(0, 0, 0, 0);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void Card::display(const FormGroup& group) {
  displayPicture(group.picture);
  rows_.update(group.rows, *stack_, 0, [this] { return new RowView(report_, box_); });
  const auto views = rows_.views();
  isBare_ = !group.picture && std::ranges::all_of(views, &RowView::isBare);
  for (auto* view : views) view->setPadding(picture_ != nullptr || isBare_ ? tightPadding : 5);
  shareColumns();
  stack_->invalidate();
  updateGeometry();
  arrange();
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
    picture_->show();
  }
  picture_->display(*picture);
}

int Card::rowsHeight(int width) const {
  return stack_->hasHeightForWidth() ? stack_->totalHeightForWidth(width) : stack_->totalSizeHint().height();
}

Card::Arrangement Card::arrangement(int width) const {
  const int side = isBare_ ? 0 : metrics::cardPadding;
  if (picture_ == nullptr) {
    const int room = width - 2 * side;
    return {{}, {side, 0, room, rowsHeight(room)}, rowsHeight(room)};
  }
  const int ends = metrics::cardPadding - tightPadding;
  QRect picture({metrics::cardPadding + metrics::ring, metrics::cardPadding}, picture_->sizeHint());
  const int beside = width - picture.right() - besideCardPicture - side;
  if (beside < narrowestBeside) {
    const int room = width - 2 * side;
    const QRect rows(side, picture.bottom() + metrics::grid, room, rowsHeight(room));
    picture.moveLeft((width - picture.width()) / 2);
    return {picture, rows, rows.bottom() + ends};
  }
  QRect rows(width - side - beside, ends, beside, rowsHeight(beside));
  const int height = std::max(rows.height() + 2 * ends, picture.height() + 2 * metrics::cardPadding);
  rows.moveTop((height - rows.height()) / 2);
  picture.moveTop((height - picture.height()) / 2);
  return {picture, rows, height};
}

void Card::arrange() {
  const auto places = arrangement(width());
  if (picture_ != nullptr) picture_->setGeometry(places.picture);
  box_->setGeometry(places.rows);
}

QSize Card::sizeHint() const { return {500, heightForWidth(500)}; }

QSize Card::minimumSizeHint() const { return {280, 0}; }

void Card::resizeEvent(QResizeEvent*) { arrange(); }

bool Card::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    arrange();
  }
  return QWidget::event(event);
}

void Card::shareColumns() {
  // Captions of shares keep their column when they come to 100%.
  RowColumns shared{.caption = fontMetrics().horizontalAdvance(QStringLiteral("100%")) + 2.0};
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
  painter.drawRoundedRect(QRectF(rect()).adjusted(metrics::ring + 0.5, 0.5, -metrics::ring - 0.5, -0.5),
                          metrics::cardRadius, metrics::cardRadius);
  if (picture_ != nullptr) return;
  const auto views = rows_.views();
  for (std::size_t index = 1; index < views.size(); ++index) {
    const double y = box_->y() + views[index]->y() + 0.5;
    const double side = metrics::cardPadding + metrics::ring;
    painter.drawLine(QPointF(side, y), QPointF(width() - side, y));
  }
}

}  // namespace tilwin::qt
