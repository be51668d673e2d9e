#include "panel_dots/page_loop.h"

namespace PanelDots {
namespace {

constexpr qint64 kSecondMs = 1000;

}  // namespace

qint64 ShownMs(int seconds) { return qMax(seconds, 1) * kSecondMs; }

PageAtTime PageAt(const QList<int>& seconds, qint64 elapsed_ms) {
  qint64 total = 0;
  for (const int shown : seconds) total += ShownMs(shown);
  if (total == 0) return {};
  qint64 gone = (elapsed_ms % total + total) % total;
  qsizetype index = 0;
  while (gone >= ShownMs(seconds[index])) {
    gone -= ShownMs(seconds[index]);
    ++index;
  }
  const bool is_alone = seconds.size() == 1;
  return {index, is_alone ? 0 : elapsed_ms - gone, ShownMs(seconds[index]) - gone};
}

}  // namespace PanelDots
