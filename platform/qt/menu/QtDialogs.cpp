#include "platform/qt/menu/QtDialogs.h"

#include <QDialog>
#include <QString>

namespace tilwin::qt {

void QtDialogs::activate() {
  if (!open_.empty()) open_.back()->bringToFront();
}

void QtDialogs::alert(const DialogText& text) {
  DialogBox box(text, {.canCancel = false});
  run(box);
}

std::optional<std::string> QtDialogs::prompt(const DialogText& text, const std::string& placeholder) {
  DialogBox box(text, {.placeholder = QString::fromStdString(placeholder)});
  if (!run(box)) return std::nullopt;
  return box.entered().toStdString();
}

bool QtDialogs::confirm(const DialogText& text, const std::string& accept) {
  DialogBox box(text, {.accept = QString::fromStdString(accept)});
  return run(box);
}

bool QtDialogs::run(DialogBox& box) {
  if (beforeOpening_) beforeOpening_();
  open_.push_back(&box);
  // The loop also ends when the program stops; the dialog then still has the result of one that is closed.
  box.exec();
  open_.pop_back();
  return box.result() == QDialog::Accepted;
}

}  // namespace tilwin::qt
