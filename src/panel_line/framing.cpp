#include "panel_line/framing.h"

#include "base/text.h"

namespace Brivon1 {
namespace {

constexpr const char* kLineEnd = "\r\n";

}  // namespace

QByteArray AckPrefix(int id) {
  return "<ID" + QByteArray::number(id, 16).toUpper().rightJustified(2, '0') + '>';
}

QByteArray Acknowledgement(int id) { return AckPrefix(id) + kLineEnd; }

QByteArray PollFrame(int id) { return AckPrefix(id) + "<?>" + kLineEnd; }

QByteArray DeleteAllFrame(int id) { return AckPrefix(id) + "<D*>" + kLineEnd; }

QByteArray DeletePageFrame(int id, int page) {
  return AckPrefix(id) + "<D" + ZeroPadded(page, 3) + '>' + kLineEnd;
}

QByteArray RunPageFrame(int id, int page) {
  return AckPrefix(id) + "<RP" + ZeroPadded(page, 3) + '>' + kLineEnd;
}

QByteArray SetClockFrame(const QDateTime& now) {
  const QDate date = now.date();
  const QTime time = now.time();
  return "<T" + ZeroPadded(date.year() % 100, 2) + ZeroPadded(date.month(), 2) +
         ZeroPadded(date.day(), 2) + QByteArray::number(date.dayOfWeek() % 7) +
         ZeroPadded(time.hour(), 2) + ZeroPadded(time.minute(), 2) + ZeroPadded(time.second(), 2) +
         '>' + kLineEnd;
}

QByteArray StripColourCodes(const QByteArray& text) {
  QByteArray result;
  QByteArrayView rest = text;
  while (rest.size() >= kAttributeCodeLength) {
    const qsizetype code = rest.indexOf(QByteArrayView("<C"));
    if (code < 0 || code > rest.size() - kAttributeCodeLength) break;
    if (rest[code + 3] != '>') {
      result += rest.first(code + 2);
      rest = rest.sliced(code + 2);
    } else {
      result += rest.first(code);
      rest = rest.sliced(code + kAttributeCodeLength);
    }
  }
  return result + rest.toByteArray();
}

}  // namespace Brivon1
