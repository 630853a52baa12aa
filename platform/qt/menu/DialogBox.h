#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QString>
#include <optional>

#include "platform/ports/Dialogs.h"

class QVBoxLayout;

namespace tilwin::qt {

/// What a dialog shows beside its texts.
struct DialogControls {
  std::optional<QString> placeholder{};  ///< of a text field; no field if not given
  QString accept{"OK"};                  ///< the default button
  bool canCancel = true;                 ///< has a button "Cancel"; Escape closes it anyway
};

/// The window of one dialog. While it opens it brings itself to the front and takes the keyboard focus.
class DialogBox : public QDialog {
public:
  DialogBox(const DialogText& text, const DialogControls& controls);

  /// What is in the field; empty without one.
  [[nodiscard]] QString entered() const;
  void bringToFront();

protected:
  void showEvent(QShowEvent* event) override;

private:
  void addTexts(QVBoxLayout& column, const DialogText& text);
  void addMessage(QVBoxLayout& column, const QString& message);
  void addField(QVBoxLayout& column, const QString& name, const QString& placeholder);
  void addButtons(QVBoxLayout& column, const DialogControls& controls);

  QLineEdit* field_ = nullptr;
};

}  // namespace tilwin::qt
