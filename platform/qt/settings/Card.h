#pragma once

#include <QRect>
#include <QWidget>
#include <optional>
#include <vector>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/KeptWidgets.h"
#include "platform/qt/settings/Report.h"
#include "platform/qt/settings/RowView.h"

class QVBoxLayout;

namespace tilwin::qt {

class MiniatureView;

/// The rows of a group on a rounded sheet, beside the group's picture if it has one, or below it if there is
/// not enough room. Rows of mere buttons stand without a sheet. At its sides is room for focus rings.
class Card final : public QWidget {
public:
  Card(const Report& report, QWidget* parent);

  void display(const FormGroup& group);
  [[nodiscard]] std::vector<RowView*> rows() const { return rows_.views(); }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override { return arrangement(width).height; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

private:
  struct Arrangement {
    QRect picture{};
    QRect rows{};
    int height = 0;
  };

  [[nodiscard]] Arrangement arrangement(int width) const;
  [[nodiscard]] int rowsHeight(int width) const;
  void arrange();
  void displayPicture(const std::optional<FormPicture>& picture);
  void shareColumns();

  const Report& report_;
  QWidget* box_;  ///< holds the rows
  QVBoxLayout* stack_;
  MiniatureView* picture_ = nullptr;
  KeptWidgets<RowView, FormRow> rows_;
  bool isBare_ = false;
};

}  // namespace tilwin::qt
