#include "platform/qt/settings/GroupView.h"

#include <QVBoxLayout>

#include "platform/qt/settings/Card.h"
#include "platform/qt/settings/Theme.h"

namespace tilwin::qt {

GroupView::GroupView(const Report& report, QWidget* parent)
    : QWidget(parent),
      heading_(new TextLabel(TextLabel::Tone::heading, this)),
      card_(new Card(report, this)) {
  heading_->setObjectName(QStringLiteral("heading"));
  heading_->setContentsMargins(metrics::ring, 0, metrics::ring, 0);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(metrics::grid);
  layout->addWidget(heading_);
  layout->addWidget(card_);
}

void GroupView::display(const FormGroup& group) {
  setObjectName(QString::fromStdString(group.id));
  heading_->display(group.heading);
  setAccessibleName(QString::fromStdString(group.heading));
  card_->setVisible(!group.rows.empty() || group.picture);
  card_->display(group);
}

void GroupView::addControls(std::vector<QWidget*>& to) const {
  for (const auto* row : card_->rows()) {
    for (const auto& control : row->controls()) to.push_back(control.widget);
  }
}

}  // namespace tilwin::qt
