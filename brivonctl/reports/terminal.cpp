#include "reports/terminal.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace BrivonCtl {

QString Coloured(const QString& text, Colour colour, const Terminal& terminal) {
  if (!terminal.has_colours) return text;
  return u"\x1b[%1m%2\x1b[0m"_s.arg(static_cast<int>(colour)).arg(text);
}

QString Cut(const QString& text, int columns) {
  if (text.size() <= columns) return text;
  constexpr int kDots = 3;
  return text.left(std::max(columns - kDots, 0)) + u"..."_s.left(columns);
}

}  // namespace BrivonCtl
