#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/desktop/TilwinProcess.h"
#include "tests/desktop/harness/Session.h"
#include "tests/desktop/soak/Dice.h"
#include "tests/desktop/soak/Model.h"

namespace tilwin::desktop::soak {

/// A desktop whose windows, displays and managers come and go, with the program running, and the model of it.
/// What an act does to the desktop it tells the model too; then `settle` compares the two. Everything throws
/// HarnessError when the desktop is not what the model says.
class SoakDesktop {
public:
  SoakDesktop(std::filesystem::path tilwin, Manager manager);

  Model& model() { return model_; }
  [[nodiscard]] const Model& model() const { return model_; }
  Session& session() { return session_; }
  Desktop& desktop() { return session_.desktop(); }
  Input& hand() { return session_.input(); }
  WindowManager& manager() { return replacement_ ? *replacement_ : session_.manager(); }
  TilwinProcess& tilwin() { return *tilwin_; }

  /// Says what the act is about to do.
  void note(const std::string& text) { notes_ += notes_.empty() ? text : "; " + text; }
  /// What has been said since the last call.
  std::string takeNotes() { return std::exchange(notes_, {}); }

  [[nodiscard]] WindowId id(const ModelWindow& window) const { return clients_.at(window.name)->id(); }
  /// Opens a window of some kind, wherever its manager puts it.
  ModelWindow& open(Dice& dice);
  void close(const ModelWindow& window);
  void focus(const ModelWindow& window);
  /// The same; one that has the focus may stand beneath others.
  void bringToFront(const ModelWindow& window);
  /// Has windows that are not wholly in a display's free area placed there by hand: where managers differ on
  /// what may be off the screen, nothing can be expected.
  void gather(Dice& dice);
  void placeByHand(ModelWindow& window, const Rect& frame);
  /// A frame within the free area of a display.
  [[nodiscard]] Rect someFrame(Dice& dice) const;
  [[nodiscard]] Standing look(const ModelWindow& window);
  [[nodiscard]] std::optional<Rect> preview();

  /// Plugs and unplugs displays until exactly these are there.
  void arrange(const std::vector<PluggedDisplay>& displays);
  [[nodiscard]] bool hasPanel() const { return panel_ != nullptr; }
  void showPanel(bool on);
  /// Ends the manager, does something, and starts this one.
  void replaceManager(Manager by, const std::function<void()>& meanwhile);
  /// Starts the program again with these settings, after ending it by this signal.
  void restartTilwin(const Spacing& spacing, int signal);

  /// Waits until all windows are where the model has them and it is quiet for that long; then compares.
  void settle(Milliseconds quiet = Milliseconds{150}, Milliseconds patience = answerTimeout);

private:
  void compare();
  void writeSettings(const Spacing& spacing);

  std::filesystem::path executable_;
  Session session_;
  std::unique_ptr<WindowManager> replacement_;
  std::unique_ptr<TilwinProcess> tilwin_;
  std::map<std::string, std::unique_ptr<TestWindow>> clients_;
  std::unique_ptr<TestWindow> panel_;
  Model model_;
  int opened_ = 0;
  std::string notes_;
};

}  // namespace tilwin::desktop::soak
