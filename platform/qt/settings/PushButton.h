#pragma once

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/TitledButton.h"

namespace tilwin::qt {

/// A button with a title, a symbol, or both.
class PushButton final : public TitledButton {
public:
  PushButton(const FormButton& button, const Report& report, QWidget* parent);

  void display(const FormButton& button);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  FormSymbol symbol_ = FormSymbol::none;
};

}  // namespace tilwin::qt
