#pragma once

#include <QLabel>
#include <QString>

namespace tilwin::qt {

/// Plain text of a fixed width in as many lines as it needs. A word that is wider than a line, such as a
/// path, is broken too. Its accessible name is the text itself.
class WrappedLabel : public QLabel {
public:
  WrappedLabel(const QString& text, const QFont& font, int width);
};

}  // namespace tilwin::qt
