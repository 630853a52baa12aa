#pragma once

#include <QPushButton>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"

namespace tilwin::qt {

/// A button with a title, a symbol, or both.
class PushButton final : public QPushButton {
public:
  PushButton(const FormButton& button, const Report& report, QWidget* parent);

  void display(const FormButton& button);
  /// Not Qt's `text`, in which an ampersand would mark a key.
  [[nodiscard]] const QString& title() const { return title_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  QString title_;
  FormSymbol symbol_ = FormSymbol::none;
};

}  // namespace tilwin::qt
