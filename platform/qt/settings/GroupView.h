#pragma once

#include <QWidget>
#include <vector>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"
#include "platform/qt/settings/TextLabel.h"

namespace tilwin::qt {

class Card;

/// A group of rows: its heading, and its card.
class GroupView final : public QWidget {
public:
  GroupView(const Report& report, QWidget* parent);

  void display(const FormGroup& group);
  /// Appends its controls in reading order.
  void addControls(std::vector<QWidget*>& to) const;

private:
  TextLabel* heading_;
  Card* card_;
};

}  // namespace tilwin::qt
