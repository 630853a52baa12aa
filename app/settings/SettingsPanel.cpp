#include "app/settings/SettingsPanel.h"

#include <utility>
#include <variant>

namespace tilwin {

SettingsPanel::SettingsPanel(SettingsWindow& window, MainQueue& mainQueue, SettingsStore& store,
                             ViewMaker makeView)
    : window_(window),
      mainQueue_(mainQueue),
      store_(store),
      makeView_(std::move(makeView)),
      self_(std::make_shared<SettingsPanel*>(this)) {
  window_.onEvent([this](const FormEvent& event) { handle(event); });
}

SettingsPanel::~SettingsPanel() {
  window_.onEvent(nullptr);
  window_.close();
}

void SettingsPanel::show(const std::optional<std::string>& section) {
  if (view_) {
    view_->lookAgain();
  } else {
    view_ = makeView_();
    view_->onChange = [this] { update(); };
    settingsChanges_ = store_.settings.subscribe([this](const auto&) { updateSoon(); });
    unavailableChanges_ = store_.unavailable.subscribe([this](const auto&) { updateSoon(); });
  }
  if (section) view_->handle(form::SectionChosen{*section});
  window_.show(view_->form());
}

bool SettingsPanel::record(const HotKeySpec& keys) {
  if (!view_ || !view_->isRecording()) return false;
  view_->handle(form::KeyPressed{keys});
  return true;
}

void SettingsPanel::handle(const FormEvent& event) {
  if (!view_) return;
  view_->handle(event);
  if (!std::holds_alternative<form::WindowClosed>(event)) return;
  settingsChanges_ = {};
  unavailableChanges_ = {};
  view_.reset();
}

void SettingsPanel::update() {
  if (view_) window_.update(view_->form());
}

/// The store tells of a change before it happens.
void SettingsPanel::updateSoon() {
  mainQueue_.post([weak = std::weak_ptr(self_)] {
    if (const auto self = weak.lock()) (*self)->update();
  });
}

}  // namespace tilwin
