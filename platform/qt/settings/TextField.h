#pragma once

#include <QLineEdit>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"

class QAbstractButton;

namespace tilwin::qt {

/// A line of text. A search field shows a lens and a button that empties it, as Escape does.
class TextField final : public QLineEdit {
public:
  TextField(const FormTextField& field, const Report& report, QWidget* parent);

  /// Text that equals the typed one leaves cursor and selection alone; other text keeps the cursor as near
  /// as it can.
  void display(const FormTextField& field);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void clearPalette();

  bool isSearch_ = false;
  QAbstractButton* emptying_ = nullptr;
};

}  // namespace tilwin::qt
