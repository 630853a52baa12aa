#pragma once

#include <QWidget>
#include <optional>
#include <vector>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/KeptWidgets.h"
#include "platform/qt/settings/Report.h"
#include "platform/qt/settings/RowView.h"

class QHBoxLayout;
class QVBoxLayout;

namespace tilwin::qt {

class MiniatureView;

/// The rows of a group on a rounded sheet, beside the group's picture if it has one. Rows of mere buttons
/// stand without a sheet.
class Card final : public QWidget {
public:
  Card(const Report& report, QWidget* parent);

  void display(const FormGroup& group);
  [[nodiscard]] std::vector<RowView*> rows() const { return rows_.views(); }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void displayPicture(const std::optional<FormPicture>& picture);
  void shareColumns();

  const Report& report_;
  QHBoxLayout* layout_;
  QVBoxLayout* stack_;
  MiniatureView* picture_ = nullptr;
  KeptWidgets<RowView, FormRow> rows_;
  bool isBare_ = false;
};

}  // namespace tilwin::qt
