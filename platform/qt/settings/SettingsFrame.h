#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/KeyCapture.h"
#include "platform/qt/settings/Report.h"

class QHBoxLayout;
class QWindow;

namespace tilwin::qt {

class SectionPage;
class Sidebar;

/// The window itself: the sidebar, and the page of the chosen section.
class SettingsFrame final : public QWidget {
public:
  /// `onClosing` is called when the user closes the window, before that is reported.
  SettingsFrame(Report report, KeyCodeOf keyCodeOf, std::function<void()> onClosing);
  SettingsFrame(const SettingsFrame&) = delete;
  SettingsFrame& operator=(const SettingsFrame&) = delete;
  ~SettingsFrame() override;

  void display(const FormModel& form);
  /// Hides it and deletes it when the event being handled is over. It reports nothing any more.
  void dismiss();

protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  void fallSilent();
  void displaySection(const FormSection& section);
  void orderFocus();
  void noteFocus(const QWindow* focused);

  Report target_;
  Report report_;  ///< to the target, unless silent
  std::function<void()> onClosing_;
  KeyCapture* capture_;
  Sidebar* sidebar_;
  QHBoxLayout* layout_;
  SectionPage* page_ = nullptr;
  std::vector<QWidget*> focusOrder_;
  bool hadFocus_ = false;
  bool isSilent_ = false;
};

}  // namespace tilwin::qt
