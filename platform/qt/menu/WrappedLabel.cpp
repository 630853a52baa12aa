#include "platform/qt/menu/WrappedLabel.h"

#include <QFont>
#include <QFontMetrics>
#include <QTextBoundaryFinder>

namespace tilwin::qt {
namespace {

constexpr char16_t zeroWidthSpace = 0x200B;

/// The text with an invisible place to break after each character of the words wider than a line.
QString breakable(const QString& text, const QFontMetrics& metrics, int width) {
  QString result;
  QString word;
  const auto endWord = [&] {
    const bool fits = metrics.horizontalAdvance(word) <= width;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, word);
    for (qsizetype from = 0, to = 0; (to = characters.toNextBoundary()) > 0; from = to) {
      result += word.mid(from, to - from);
      if (!fits) result += QChar(zeroWidthSpace);
    }
    word.clear();
  };
  for (const QChar character : text) {
    if (!character.isSpace()) {
      word += character;
      continue;
    }
    endWord();
    result += character;
  }
  endWord();
  return result;
}

}  // namespace

WrappedLabel::WrappedLabel(const QString& text, const QFont& font, int width) {
  setTextFormat(Qt::PlainText);
  setFont(font);
  setWordWrap(true);
  setFixedWidth(width);
  setText(breakable(text, QFontMetrics(font), width));
  setAccessibleName(text);
  setMinimumHeight(heightForWidth(width));
}

}  // namespace tilwin::qt
