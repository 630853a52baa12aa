#pragma once

#include <QLabel>
#include <string>

namespace tilwin::qt {

/// Plain text that is broken into lines and never cut off.
class TextLabel final : public QLabel {
public:
  enum class Tone { title, pageTitle, heading, secondary, problem };

  TextLabel(Tone tone, QWidget* parent);

  /// Shows the text; hides the label if it is empty. Returns whether something changed.
  bool display(const std::string& text);

  /// The width of the text in one line.
  [[nodiscard]] int lineWidth() const;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  [[nodiscard]] int sideMargins() const;

  Tone tone_;
};

}  // namespace tilwin::qt
