#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "platform/ports/FormModel.h"
#include "platform/qt/settings/KeptWidgets.h"
#include "platform/qt/settings/Report.h"
#include "platform/qt/settings/TextLabel.h"

class QScrollArea;
class QVBoxLayout;

namespace tilwin::qt {

class GroupView;
class TextField;

/// A section: title, help and search field at the top, and the groups, which scroll.
class SectionPage final : public QWidget {
public:
  SectionPage(const Report& report, QWidget* parent);

  void display(const FormSection& section);
  /// The id of the section that is shown.
  [[nodiscard]] const std::string& section() const { return section_; }
  /// Its controls in reading order.
  [[nodiscard]] std::vector<QWidget*> controls() const;
  /// Puts the keyboard focus into the search field, if there is one.
  void focusSearch();

protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  void displaySearch(const std::optional<FormTextField>& search);
  void centreContent();
  QVBoxLayout* makeHeader();
  void makeScroll();

  const Report& report_;
  std::string section_;
  TextLabel* title_;
  TextLabel* help_;
  TextLabel* emptyText_ = nullptr;
  TextField* search_ = nullptr;
  QScrollArea* scroll_;
  QWidget* content_;
  QVBoxLayout* header_;
  QVBoxLayout* stack_;
  KeptWidgets<GroupView, FormGroup> groups_;
};

}  // namespace tilwin::qt
