#pragma once

#include <string>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/TitledButton.h"

namespace tilwin::qt {

/// A recorder: looks like the cap of a key, with an accented border while it records.
class KeyCapButton final : public TitledButton {
public:
  KeyCapButton(const FormRecorder& recorder, const Report& report, QWidget* parent);

  /// Takes the keyboard focus when the recording starts. The remark is what screen readers say after the
  /// keys.
  void display(const FormRecorder& recorder, const std::string& remark);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  bool isEmpty_ = false;
  bool isRecording_ = false;
};

}  // namespace tilwin::qt
