#pragma once

#include <QPushButton>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/Report.h"

namespace tilwin::qt {

/// A recorder: looks like the cap of a key, with an accented border while it records.
class KeyCapButton final : public QPushButton {
public:
  KeyCapButton(const FormRecorder& recorder, const Report& report, QWidget* parent);

  /// Takes the keyboard focus when the recording starts.
  void display(const FormRecorder& recorder);
  /// Not Qt's `text`, in which an ampersand would mark a key.
  [[nodiscard]] const QString& title() const { return title_; }

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

private:
  QString title_;
  bool isEmpty_ = false;
  bool isRecording_ = false;
};

}  // namespace tilwin::qt
