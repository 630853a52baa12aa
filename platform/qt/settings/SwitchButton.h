#pragma once

#include <QCheckBox>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"

namespace tilwin::qt {

/// A toggle: its title at the left, broken into lines, and a switch at the right.
class SwitchButton final : public QCheckBox {
public:
  SwitchButton(const FormToggle& toggle, const Report& report, QWidget* parent);

  void display(const FormToggle& toggle);
  /// Not Qt's `text`, in which an ampersand would mark a key.
  [[nodiscard]] const QString& title() const { return title_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& at) const override { return rect().contains(at); }
  void keyPressEvent(QKeyEvent* event) override;

private:
  [[nodiscard]] static int titleWidth(int width);

  QString title_;
};

}  // namespace tilwin::qt
