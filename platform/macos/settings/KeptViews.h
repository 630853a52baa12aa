#pragma once

#import <AppKit/AppKit.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/macos/settings/Measured.h"
#include "platform/macos/support/Held.h"

namespace tilwin::macos {

/// The views that show a list of models with ids. A view stays as long as its id is in the list.
template <typename View>
class KeptViews {
public:
  /// Shows these models in children of `parent`. `make` creates a view without content.
  template <typename Model, typename Make>
  void update(const std::vector<Model>& models, NSView* parent, Make make) {
    std::vector<Held<View*>> before;
    before.swap(views_);
    for (const auto& model : models) {
      const auto found =
          std::ranges::find_if(before, [&](const auto& view) { return [view.get() formId] == model.id; });
      views_.push_back(found == before.end() ? added(make(), parent) : *found);
      if (found != before.end()) before.erase(found);
      [views_.back().get() displayModel:model];
    }
    for (const auto& gone : before) discard(gone.get());
  }

  [[nodiscard]] const std::vector<Held<View*>>& views() const { return views_; }

private:
  static Held<View*> added(Held<View*> view, NSView* parent) {
    [parent addSubview:view.get()];
    return view;
  }

  std::vector<Held<View*>> views_;
};

}  // namespace tilwin::macos
