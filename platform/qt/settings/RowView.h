#pragma once

#include <QWidget>
#include <vector>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"
#include "platform/qt/settings/RowControl.h"
#include "platform/qt/settings/RowToolkit.h"

namespace tilwin::qt {

class MiniatureView;

/// One row of a form.
class RowView final : public QWidget {
public:
  RowView(const Report& report, QWidget* parent);

  void display(const FormRow& row);
  void setColumns(const RowColumns& columns);
  void setPadding(int padding);

  /// The columns that this row would like.
  [[nodiscard]] RowColumns wantedColumns() const;
  /// Its controls, in reading order.
  [[nodiscard]] const std::vector<RowControl>& controls() const { return controls_; }
  /// Whether it is nothing but buttons.
  [[nodiscard]] bool isBare() const { return isBare_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

protected:
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

private:
  [[nodiscard]] RowParts parts() const;
  void displayPicture(const std::optional<FormPicture>& picture);
  void arrange();

  const Report& report_;
  MiniatureView* picture_ = nullptr;
  TextLabel* title_;
  TextLabel* note_;
  TextLabel* problem_;
  std::vector<RowControl> controls_;
  RowColumns columns_;
  int padding_ = 6;
  bool isBare_ = false;
};

}  // namespace tilwin::qt
