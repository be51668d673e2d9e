#include "base/text.h"

#include <algorithm>
#include <limits>

namespace Brivon1 {

QByteArray TrimBlanks(QByteArrayView text) {
  const auto not_blank = [](char c) { return !IsBlank(c); };
  const auto first = std::find_if(text.begin(), text.end(), not_blank);
  const auto last = std::find_if(text.rbegin(), text.rend(), not_blank).base();
  return first < last ? QByteArray(first, last - first) : QByteArray();
}

int LeadingNumber(QByteArrayView text, int lowest, int highest) {
  qsizetype at = 0;
  while (at < text.size() && IsBlank(text[at])) ++at;
  bool negative = false;
  if (at < text.size() && (text[at] == '+' || text[at] == '-')) negative = text[at++] == '-';
  constexpr qint64 kEnough = qint64{1} << 40;  // beyond every bound, far from an overflow
  qint64 number = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    number = std::min(number * 10 + (text[at] - '0'), kEnough);
  }
  return static_cast<int>(std::clamp<qint64>(negative ? -number : number, lowest, highest));
}

qint16 LeadingNumber16(QByteArrayView text) {
  return static_cast<qint16>(
      LeadingNumber(text, std::numeric_limits<qint16>::min(), std::numeric_limits<qint16>::max()));
}

QByteArray ValueAfterEquals(QByteArrayView line) {
  return line.sliced(line.indexOf('=') + 1).toByteArray();
}

QByteArray ZeroPadded(int number, int digits) {
  if (number < 0) return '-' + ZeroPadded(-number, digits);
  return QByteArray::number(number).rightJustified(digits, '0');
}

}  // namespace Brivon1
