#pragma once

#include <QListWidget>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"

namespace tilwin::qt {

/// The list of sections, each with its symbol. Chosen by a click or the arrow keys.
class Sidebar final : public QListWidget {
public:
  Sidebar(const Report& report, QWidget* parent);

  void display(const FormModel& form);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

private:
  /// The focus ring is for those who use the keyboard.
  void showRing(bool shown);
  void displaySection(int index, const FormSection& section);
};

}  // namespace tilwin::qt
