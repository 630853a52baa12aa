#include "platform/qt/settings/Sidebar.h"

#include <QKeyEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include "platform/qt/settings/Painting.h"
#include "platform/qt/settings/Symbols.h"

namespace tilwin::qt {
namespace {

constexpr int idRole = Qt::UserRole;
constexpr int symbolRole = Qt::UserRole + 1;
constexpr const char* ringProperty = "showsRing";
constexpr int itemHeight = 36;
constexpr int narrowestSidebar = 192;
constexpr int widestSidebar = 264;
constexpr int sectionSymbolSize = 18;
constexpr int besideSymbol = 10;

class SectionDelegate final : public QStyledItemDelegate {
public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    return {narrowestSidebar - 2 * metrics::grid, itemHeight};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const Theme theme = Theme::of(option.palette);
    const QRectF body = bodyOf(option.rect).adjusted(0, -1, 0, 1);
    drawBackground(*painter, body, option, theme);
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    const QRectF symbol(body.left() + besideSymbol, body.center().y() - sectionSymbolSize / 2.0,
                        sectionSymbolSize, sectionSymbolSize);
    const auto kind = static_cast<FormSymbol>(index.data(symbolRole).toInt());
    drawSymbol(*painter, kind, symbol, isChosen ? theme.accent : theme.secondary);
    painter->setPen(theme.text);
    QFont font = option.font;
    if (isChosen) font.setWeight(QFont::DemiBold);
    painter->setFont(font);
    const QRectF room = body.adjusted(2 * besideSymbol + sectionSymbolSize, 0, -besideSymbol, 0);
    const QString title = index.data().toString();
    painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                      QFontMetrics(font).elidedText(title, Qt::ElideRight, static_cast<int>(room.width())));
    painter->restore();
  }

private:
  static void drawBackground(QPainter& painter, const QRectF& body, const QStyleOptionViewItem& option,
                             const Theme& theme) {
    const bool isChosen = option.state.testFlag(QStyle::State_Selected);
    const bool isUnderPointer = option.state.testFlag(QStyle::State_MouseOver);
    painter.setPen(Qt::NoPen);
    if (isChosen) painter.setBrush(mixed(theme.accent, theme.sidebar, theme.isDark ? 0.3 : 0.16));
    if (!isChosen && isUnderPointer) painter.setBrush(mixed(theme.text, theme.sidebar, 0.06));
    if (isChosen || isUnderPointer)
      painter.drawRoundedRect(body, metrics::controlRadius, metrics::controlRadius);
    const bool hasRing = option.widget != nullptr && option.widget->property(ringProperty).toBool();
    if (hasRing && option.state.testFlag(QStyle::State_HasFocus)) {
      drawFocusRing(painter, body.adjusted(1, 1, -1, -1), metrics::controlRadius, theme);
    }
  }
};

}  // namespace

Sidebar::Sidebar(const Report& report, QWidget* parent) : QListWidget(parent) {
  setObjectName(QStringLiteral("sidebar"));
  setAccessibleName(QStringLiteral("Sections"));
  setFrameShape(QFrame::NoFrame);
  setItemDelegate(new SectionDelegate(this));
  setMouseTracking(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setViewportMargins(metrics::grid, metrics::pageMargin - metrics::ring, metrics::grid, metrics::grid);
  viewport()->setAutoFillBackground(false);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  setTabKeyNavigation(false);
  connect(this, &QListWidget::itemSelectionChanged, this, [this, &report] {
    const auto chosen = selectedItems();
    if (chosen.isEmpty()) return;
    report(form::SectionChosen{chosen.constFirst()->data(idRole).toString().toStdString()});
  });
}

void Sidebar::display(const FormModel& form) {
  const QSignalBlocker silent(this);
  while (count() > static_cast<int>(form.sections.size())) delete takeItem(count() - 1);
  for (int index = 0; index < static_cast<int>(form.sections.size()); ++index) {
    const auto& section = form.sections[static_cast<std::size_t>(index)];
    displaySection(index, section);
    const bool isChosen = currentRow() == index && item(index)->isSelected();
    if (section.id == form.chosenSection && !isChosen) setCurrentRow(index);
  }
}

void Sidebar::displaySection(int index, const FormSection& section) {
  if (index == count()) addItem(new QListWidgetItem);
  auto& shown = *item(index);
  const QString title = QString::fromStdString(section.title);
  if (shown.text() != title) {
    shown.setText(title);
    shown.setToolTip(fontMetrics().horizontalAdvance(title) > widestSidebar - 80 ? title : QString());
    updateGeometry();
  }
  shown.setData(idRole, QString::fromStdString(section.id));
  shown.setData(symbolRole, static_cast<int>(section.symbol));
}

QSize Sidebar::sizeHint() const {
  QFont bold = font();
  bold.setWeight(QFont::DemiBold);
  int widest = 0;
  for (int index = 0; index < count(); ++index) {
    widest = qMax(widest, QFontMetrics(bold).horizontalAdvance(item(index)->text()));
  }
  const int wanted = widest + sectionSymbolSize + 3 * besideSymbol + 2 * (metrics::grid + metrics::ring) + 4;
  return {qBound(narrowestSidebar, wanted, widestSidebar), 200};
}

void Sidebar::keyPressEvent(QKeyEvent* event) {
  // Letters are for the form, not for a search in five titles.
  if (!event->text().isEmpty() && event->text().at(0).isPrint()) return event->ignore();
  showRing(true);
  QListWidget::keyPressEvent(event);
}

void Sidebar::mousePressEvent(QMouseEvent* event) {
  showRing(false);
  QListWidget::mousePressEvent(event);
}

void Sidebar::showRing(bool shown) {
  setProperty(ringProperty, shown);
  viewport()->update();
}

void Sidebar::focusInEvent(QFocusEvent* event) {
  // Where nothing is chosen, the list would choose something.
  const QSignalBlocker silent(this);
  QListWidget::focusInEvent(event);
  const auto reason = event->reason();
  if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) showRing(true);
  viewport()->update();
}

void Sidebar::focusOutEvent(QFocusEvent* event) {
  QListWidget::focusOutEvent(event);
  viewport()->update();
}

}  // namespace tilwin::qt
