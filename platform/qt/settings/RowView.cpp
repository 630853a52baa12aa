#include "platform/qt/settings/RowView.h"

#include <QEvent>
#include <algorithm>
#include <cmath>

#include "platform/drawing/FormRows.h"
#include "platform/qt/settings/MiniatureView.h"
#include "platform/qt/settings/Theme.h"

namespace tilwin::qt {
namespace {

TextLabel* namedLabel(TextLabel::Tone tone, const char* name, QWidget* parent) {
  auto* label = new TextLabel(tone, parent);
  label->setObjectName(QString::fromLatin1(name));
  label->hide();
  return label;
}

}  // namespace

RowView::RowView(const Report& report, QWidget* parent)
    : QWidget(parent),
      report_(report),
      title_(namedLabel(TextLabel::Tone::title, "title", this)),
      note_(namedLabel(TextLabel::Tone::secondary, "note", this)),
      problem_(namedLabel(TextLabel::Tone::problem, "problem", this)) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void RowView::display(const FormRow& row) {
  setObjectName(QString::fromStdString(row.id));
  displayPicture(row.picture);
  title_->display(row.title);
  updateControls(controls_, row, report_, this);
  note_->display(row.note);
  problem_->display(row.problem);
  isBare_ = drawing::isButtonsOnly(row);
  updateGeometry();
  arrange();
}

void RowView::displayPicture(const std::optional<FormPicture>& picture) {
  if (!picture) {
    if (picture_ != nullptr) discard(picture_);
    picture_ = nullptr;
    return;
  }
  if (picture_ == nullptr) {
    picture_ = new MiniatureView(MiniatureView::Scale::small, report_, this);
    picture_->show();
  }
  picture_->display(*picture);
}

void RowView::setColumns(const RowColumns& columns) {
  if (columns == columns_) return;
  columns_ = columns;
  updateGeometry();
  arrange();
}

void RowView::setPadding(int padding) {
  if (padding == padding_) return;
  padding_ = padding;
  updateGeometry();
  arrange();
}

RowColumns RowView::wantedColumns() const {
  RowColumns wanted;
  if (!std::ranges::any_of(controls_, &RowControl::stretches)) return wanted;
  if (!title_->isHidden()) wanted.title = title_->lineWidth();
  for (const auto& control : controls_) {
    if (control.caption != nullptr)
      wanted.caption = std::max<double>(wanted.caption, control.caption->lineWidth());
  }
  return wanted;
}

RowParts RowView::parts() const {
  RowParts parts{.picture = picture_,
                 .title = title_,
                 .note = note_,
                 .problem = problem_,
                 .columns = columns_,
                 .padding = static_cast<double>(padding_)};
  for (const auto& control : controls_) {
    parts.controls.push_back({control.widget, control.caption, control.stretches});
  }
  return parts;
}

QSize RowView::sizeHint() const { return {400, heightForWidth(400)}; }

QSize RowView::minimumSizeHint() const { return {160, 0}; }

int RowView::heightForWidth(int width) const {
  return static_cast<int>(std::ceil(RowLayout(parts(), width).height()));
}

void RowView::arrange() {
  const RowLayout layout(parts(), width());
  for (const auto& [widget, area] : layout.places()) {
    widget->setGeometry(QRectF(area.x, std::floor(area.y), area.width, area.height).toRect());
  }
}

void RowView::resizeEvent(QResizeEvent*) { arrange(); }

bool RowView::event(QEvent* event) {
  // A control's size hint has changed, for instance because of another font.
  if (event->type() == QEvent::LayoutRequest) arrange();
  return QWidget::event(event);
}

}  // namespace tilwin::qt
