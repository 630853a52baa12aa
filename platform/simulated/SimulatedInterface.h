#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/ports/Dialogs.h"
#include "platform/ports/SettingsWindow.h"
#include "platform/ports/StatusItem.h"

/// What the program shows on a simulated desktop, in memory; a test plays the user.

namespace tilwin {

/// The status icon. A test opens its menu and chooses from it.
class SimulatedStatusItem final : public StatusItem {
public:
  [[nodiscard]] bool isInstalled() const { return makeMenu_ != nullptr; }
  [[nodiscard]] bool isVisible() const { return visible_; }
  [[nodiscard]] const TemplateImage& image() const { return image_; }

  /// Whether the desktop has a panel for it; nothing if that is not known.
  std::optional<bool> hasPanel{};

  /// Opens the menu and returns what it shows.
  [[nodiscard]] MenuModel open() { return makeMenu_(); }
  /// Opens the menu and chooses the entry at the end of this path of titles, for instance
  /// {"Halves", "Left half"}; returns false if there is none. A title may be followed by four spaces and a
  /// shortcut.
  bool choose(const std::vector<std::string>& path);
  /// Chooses an entry of a menu that was opened earlier.
  void chooseFromEarlier(const MenuChoice& choice) { onChoice_(choice); }

private:
  void install(const TemplateImage& image, MenuMaker makeMenu, ChoiceHandler onChoice) override {
    image_ = image;
    makeMenu_ = std::move(makeMenu);
    onChoice_ = std::move(onChoice);
  }
  void setVisible(bool visible) override { visible_ = visible; }
  [[nodiscard]] std::optional<bool> isShown() const override { return visible_ ? hasPanel : std::nullopt; }

  TemplateImage image_;
  MenuMaker makeMenu_;
  ChoiceHandler onChoice_;
  bool visible_ = false;
};

/// Dialogs that a test answers beforehand. A prompt or confirmation without an answer is cancelled.
class SimulatedDialogs final : public Dialogs {
public:
  struct Prompt {
    DialogText text{};
    std::string placeholder{};

    bool operator==(const Prompt&) const = default;
  };

  /// A dialog while it is open.
  struct Open {
    DialogText text{};
    std::vector<std::string> buttons{};
    std::optional<std::string> placeholder{};  ///< of a prompt

    bool operator==(const Open&) const = default;
  };

  /// The next prompt is answered with this text; nothing cancels it.
  void answer(std::optional<std::string> text) { answers_.push_back(std::move(text)); }
  /// The next confirmations are accepted or cancelled.
  void setAccepting(bool accepting) { accepting_ = accepting; }
  /// Called while a dialog is open.
  std::function<void()> whileOpen;

  [[nodiscard]] const std::vector<DialogText>& alerts() const { return alerts_; }
  [[nodiscard]] const std::vector<Prompt>& prompts() const { return prompts_; }
  [[nodiscard]] const std::vector<DialogText>& confirmations() const { return confirmations_; }
  /// The open dialogs, the one in front last.
  [[nodiscard]] const std::vector<Open>& openDialogs() const { return open_; }
  /// How often the program has come to the front; each dialog is shown in front of it.
  [[nodiscard]] int activations() const { return activations_; }

private:
  void activate() override { ++activations_; }
  void alert(const DialogText& text) override {
    alerts_.push_back(text);
    beOpen({text, {"OK"}});
  }
  std::optional<std::string> prompt(const DialogText& text, const std::string& placeholder) override {
    prompts_.push_back({text, placeholder});
    beOpen({text, {"OK", "Cancel"}, placeholder});
    if (answers_.empty()) return std::nullopt;
    auto answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }
  bool confirm(const DialogText& text, const std::string& accept) override {
    confirmations_.push_back(text);
    beOpen({text, {accept, "Cancel"}});
    return accepting_;
  }
  void beOpen(Open dialog) {
    open_.push_back(std::move(dialog));
    if (whileOpen) whileOpen();
    open_.pop_back();
  }

  std::vector<DialogText> alerts_;
  std::vector<Prompt> prompts_;
  std::vector<DialogText> confirmations_;
  std::vector<Open> open_;
  std::deque<std::optional<std::string>> answers_;
  bool accepting_ = false;
  int activations_ = 0;
};

/// The settings window. A test reads the form and reports what a user does in it.
class SimulatedSettingsWindow final : public SettingsWindow {
public:
  /// The form as it is drawn; nothing if the window is closed.
  [[nodiscard]] const std::optional<FormModel>& form() const { return form_; }
  /// The user does this in the open window.
  void send(const FormEvent& event) {
    if (std::holds_alternative<form::WindowClosed>(event)) form_.reset();
    // A copy, because the handler may set another one.
    if (const auto handler = handler_) handler(event);
  }
  [[nodiscard]] int showCount() const { return showCount_; }

  void onEvent(EventHandler handler) override { handler_ = std::move(handler); }
  void show(const FormModel& form) override {
    form_ = form;
    ++showCount_;
  }
  void update(const FormModel& form) override {
    if (form_) form_ = form;
  }
  void close() override { form_.reset(); }
  [[nodiscard]] bool isOpen() const override { return form_.has_value(); }

private:
  std::optional<FormModel> form_;
  EventHandler handler_;
  int showCount_ = 0;
};

}  // namespace tilwin
