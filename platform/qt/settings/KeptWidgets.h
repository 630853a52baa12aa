#pragma once

#include <QBoxLayout>
#include <QString>
#include <algorithm>
#include <string>
#include <vector>

#include "platform/qt/settings/RowControl.h"

namespace tilwin::qt {

/// The widgets in a layout that show a list of models with ids. A widget stays as long as its id is in the
/// list.
template <typename View, typename Model>
class KeptWidgets {
public:
  /// Shows these models, one widget below the other from the layout's item `first` on. `make` creates a
  /// widget without content.
  template <typename Make>
  void update(const std::vector<Model>& models, QBoxLayout& layout, int first, Make make) {
    std::vector<Kept> before;
    before.swap(kept_);
    for (const auto& model : models) {
      const auto found = std::ranges::find(before, model.id, &Kept::id);
      View* view = found == before.end() ? make() : found->view;
      if (found != before.end()) before.erase(found);
      place(view, layout, first + static_cast<int>(kept_.size()));
      kept_.push_back({model.id, view});
      view->display(model);
      view->show();
    }
    for (const auto& gone : before) {
      layout.removeWidget(gone.view);
      discard(gone.view);
    }
  }

  [[nodiscard]] std::vector<View*> views() const {
    std::vector<View*> result;
    std::ranges::transform(kept_, std::back_inserter(result), &Kept::view);
    return result;
  }

private:
  struct Kept {
    std::string id;
    View* view;
  };

  static void place(View* view, QBoxLayout& layout, int index) {
    const auto* item = layout.itemAt(index);
    if (item != nullptr && item->widget() == view) return;
    layout.removeWidget(view);
    layout.insertWidget(index, view);
  }

  std::vector<Kept> kept_;
};

}  // namespace tilwin::qt
