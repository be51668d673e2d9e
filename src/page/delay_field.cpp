#include "page/delay_field.h"

#include <algorithm>

#include "core/text.h"

namespace Brivon1 {

DelayField::DelayField(qint16 delay)
    : last_valid_(std::clamp(delay, kShortestDelay, kLongestDelay)) {}

QString DelayField::Changed(const QString& text) {
  const QString trimmed = text.trimmed();
  if (trimmed.isEmpty()) return text;
  const qint16 delay = LeadingNumber16(trimmed.toUtf8());
  if (delay >= kShortestDelay && delay <= kLongestDelay) last_valid_ = delay;
  return LastValidText();
}

}  // namespace Brivon1
