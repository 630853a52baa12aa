#pragma once

#include <QPushButton>
#include <string>

#include "platform/qt/settings/Report.h"

class QPainter;
class QRectF;

namespace tilwin::qt {

/// The Return key presses a control as the space bar does, once however long it is held. Returns whether the
/// event was that key.
bool pressByReturn(QAbstractButton& button, const QKeyEvent& event);

/// A button that draws itself and reports its presses under an id.
class TitledButton : public QPushButton {
public:
  /// Not Qt's `text`, in which an ampersand would mark a key.
  [[nodiscard]] const QString& title() const { return title_; }

protected:
  TitledButton(const std::string& id, const Report& report, QWidget* parent);

  void setTitle(const QString& title);
  /// How wide the whole title is.
  [[nodiscard]] int titleWidth() const;
  /// In the painter's pen, in the middle of the room; cut at its end if the room is narrower.
  void drawTitle(QPainter& painter, const QRectF& room) const;
  void keyPressEvent(QKeyEvent* event) override;

private:
  QString title_;
};

}  // namespace tilwin::qt
